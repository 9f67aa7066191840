#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/facade/code_types.h"

namespace BarcodeVelko {

AbstractBarcodeStrategy* BarcodeFacade2::getStrategy(int type) {
    if (type < 0 || type >= static_cast<int>(kCodeTypeCount)) {
        throw BarcodeException::Unexpected();
    }
    const CodeTypeRow& row = g_codeTypes[type];
    strategyParam = paramFor(type);
    return row.make(row.argument);
}

unsigned char BarcodeFacade2::paramFor(int type) const {
    switch (g_codeTypes[type].setting) {
        case StrategySetting::QRErrorCorrectionLevel:
            return qrErrorCorrectionLevel;
        case StrategySetting::GS1DatabarRowCount:
            return gs1DatabarRowCount;
        case StrategySetting::None:
            break;
    }
    return strategyParam;
}

}  // namespace BarcodeVelko
