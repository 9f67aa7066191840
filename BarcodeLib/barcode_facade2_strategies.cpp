#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/code_types.h"

namespace BarcodeVelko {

// A type whose strategy is not in the library answers null, which the
// generation takes as a refusal of every value.
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
    return row.make ? row.make(row.argument) : nullptr;
}

}  // namespace BarcodeVelko
