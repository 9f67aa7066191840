#include "BarcodeLib/tree/barcode_repeated_row.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/barcode_canvas.h"

namespace BarcodeVelko {

BarcodeRepeatedRow::BarcodeRepeatedRow(BarcodeRow* original) : original(original) {
    if (original == nullptr) {
        throw BarcodeException::Unexpected();
    }
}

void BarcodeRepeatedRow::add(AbstractBarcodeElement*) {
    throw BarcodeException::Unexpected();
}

void BarcodeRepeatedRow::visit(AbstractBarcodeVisitor* visitor) {
    original->visit(visitor);
}

unsigned BarcodeRepeatedRow::getWidth() const {
    return original->getWidth();
}

unsigned BarcodeRepeatedRow::getHeight() const {
    return original->getHeight();
}

unsigned BarcodeRepeatedRow::getMinWidth() const {
    return original->getMinWidth();
}

unsigned BarcodeRepeatedRow::getMinHeight() const {
    return original->getMinHeight();
}

// The band above shows the same leaves: a canvas that can copy it spares drawing them again.
void BarcodeRepeatedRow::draw(BarcodeCanvas* canvas) {
    if (canvas == nullptr || !canvas->repeatBand(getWidth(), getHeight())) {
        original->draw(canvas);
    }
}

}  // namespace BarcodeVelko
