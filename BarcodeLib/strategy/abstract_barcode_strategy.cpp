#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

#include "BarcodeLib/errors/barcode_exception.h"

namespace BarcodeVelko {

namespace {

const int kMaxTextAlign = 6;

void clearElement(AbstractBarcodeElement** element) {
    if (!element) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
}

}  // namespace

bool AbstractBarcodeStrategy::beginGenerate(const wchar_t* code, AbstractBarcodeElement** element) {
    clearElement(element);
    return checkRaw(code);
}

bool AbstractBarcodeStrategy::beginGenerate(const wchar_t* code, AbstractBarcodeElement** element,
                                            int textAlign) {
    clearElement(element);
    if (textAlign < 0 || textAlign > kMaxTextAlign) {
        throw BarcodeException::TextAlignWrongValue();
    }
    return checkRaw(code);
}

bool AbstractBarcodeStrategy::calcNoCheckSymbol(const wchar_t* value, std::wstring& check) {
    if (!checkRaw(value)) {
        return false;
    }
    check.clear();
    return true;
}

}  // namespace BarcodeVelko
