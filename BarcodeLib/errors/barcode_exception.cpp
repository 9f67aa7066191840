#include "BarcodeLib/errors/barcode_exception.h"

#include "BarcodeLib/errors/text_localizer.h"

namespace BarcodeException {

AbstractBarcodeException::AbstractBarcodeException()
    : code(kOutOfMemoryCode), state(get_localizer_state()) {}

void AbstractBarcodeException::fillExceptionInfo(const AbstractTextLocalizerState*) {}

}  // namespace BarcodeException
