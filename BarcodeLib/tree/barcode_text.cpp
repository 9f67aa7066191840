#include "BarcodeLib/tree/barcode_text.h"

#include <algorithm>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"
#include "BarcodeLib/tree/barcode_canvas.h"

namespace BarcodeVelko {

namespace {

const wchar_t* checkedText(const wchar_t* text) {
    if (text == nullptr) {
        throw BarcodeException::Unexpected();
    }
    if (*text == L'\0') {
        throw BarcodeException::OutOfMemory();
    }
    return text;
}

}  // namespace

BarcodeText::BarcodeText(unsigned minWidth, unsigned minHeight, const wchar_t* text)
    : AbstractBarcodeRect(minWidth, minHeight, false, false), text(checkedText(text)) {}

void BarcodeText::visit(AbstractBarcodeVisitor* visitor) {
    if (visitor == nullptr) {
        throw BarcodeException::Unexpected();
    }
    visitor->visit(this);
}

void BarcodeText::draw(BarcodeCanvas* canvas) {
    if (canvas == nullptr) {
        throw BarcodeException::Unexpected();
    }
    canvas->drawText(getWidth(), getHeight(), text.c_str());
}

// A text without height is switched off and must not widen the symbol either.
unsigned BarcodeText::getWidth() const {
    return getHeight() == 0 ? 0 : AbstractBarcodeRect::getWidth();
}

unsigned BarcodeText::getMinWidth() const {
    return getHeight() == 0 ? 0 : AbstractBarcodeRect::getMinWidth();
}

wchar_t* BarcodeText::getText() const {
    wchar_t* copy = new wchar_t[text.size() + 1];
    std::copy(text.c_str(), text.c_str() + text.size() + 1, copy);
    return copy;
}

}  // namespace BarcodeVelko
