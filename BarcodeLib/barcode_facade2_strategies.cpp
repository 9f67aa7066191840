#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/strategy_codabar.h"
#include "BarcodeLib/strategy_code128.h"
#include "BarcodeLib/strategy_code39.h"
#include "BarcodeLib/strategy_code39_ext.h"
#include "BarcodeLib/strategy_code93.h"
#include "BarcodeLib/strategy_ean13.h"
#include "BarcodeLib/strategy_ean13_addon2.h"
#include "BarcodeLib/strategy_ean13_addon5.h"
#include "BarcodeLib/strategy_ean8.h"
#include "BarcodeLib/strategy_interleaved2of5.h"
#include "BarcodeLib/strategy_itf14.h"
#include "BarcodeLib/strategy_qr.h"
#include "BarcodeLib/strategy_standard2of5.h"

namespace BarcodeVelko {

// A type whose strategy is not in the library answers null, which the
// generation takes as a refusal of every value.
AbstractBarcodeStrategy* BarcodeFacade2::getStrategy(int type) {
    if (type < 0 || type >= static_cast<int>(kCodeTypeCount)) {
        throw BarcodeException::Unexpected();
    }
    if (type == 16) {
        strategyParam = qrErrorCorrectionLevel;
    } else if (type == 17) {
        strategyParam = gs1DatabarRowCount;
    }
    switch (type) {
        case 0:
            return newOrThrow<StrategyEAN8>();
        case 1:
            return newOrThrow<StrategyEAN13>();
        case 3:
            return newOrThrow<StrategyCode39>();
        case 4:
            return newOrThrow<StrategyCode128>();
        case 7:
            return newOrThrow<StrategyStandard2of5>();
        case 8:
            return newOrThrow<StrategyInterleaved2of5>();
        case 9:
            return newOrThrow<StrategyCode39Ext>();
        case 10:
            return newOrThrow<StrategyCode93>();
        case 11:
            return newOrThrow<StrategyITF14>();
        case 13:
            return newOrThrow<StrategyCodaBar>();
        case 14:
            return newOrThrow<StrategyEAN13AddOn2>();
        case 15:
            return newOrThrow<StrategyEAN13AddOn5>();
        case 16:
            return newOrThrow<StrategyQR>();
        default:
            return nullptr;
    }
}

}  // namespace BarcodeVelko
