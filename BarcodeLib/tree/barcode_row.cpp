#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

unsigned BarcodeRow::getWidth() const {
    return sumOf(&AbstractBarcodeElement::getWidth);
}

unsigned BarcodeRow::getHeight() const {
    return maxOf(&AbstractBarcodeElement::getHeight);
}

unsigned BarcodeRow::getMinWidth() const {
    return sumOf(&AbstractBarcodeElement::getMinWidth);
}

unsigned BarcodeRow::getMinHeight() const {
    return maxOf(&AbstractBarcodeElement::getMinHeight);
}

void BarcodeRow::draw(BarcodeCanvas* canvas) {
    drawInLine(canvas, Direction::Across);
}

}  // namespace BarcodeVelko
