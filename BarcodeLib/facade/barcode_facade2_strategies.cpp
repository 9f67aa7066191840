#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/facade/code_types.h"

namespace BarcodeVelko {

AbstractBarcodeStrategy* BarcodeFacade2::getStrategy(int type) {
    if (type < 0 || type >= static_cast<int>(kCodeTypeCount)) {
        throw BarcodeException::Unexpected();
    }
    const CodeTypeRow& row = g_codeTypes[type];
    switch (row.setting) {
        case StrategySetting::QRErrorCorrectionLevel:
            strategyParam = qrErrorCorrectionLevel;
            break;
        case StrategySetting::GS1DatabarRowCount:
            strategyParam = gs1DatabarRowCount;
            break;
        case StrategySetting::None:
            break;
    }
    return row.make(row.argument);
}

}  // namespace BarcodeVelko
