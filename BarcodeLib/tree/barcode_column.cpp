#include "BarcodeLib/tree/barcode_column.h"

namespace BarcodeVelko {

unsigned BarcodeColumn::getWidth() const {
    return maxOf<&AbstractBarcodeElement::getWidth>();
}

unsigned BarcodeColumn::getHeight() const {
    return sumOf<&AbstractBarcodeElement::getHeight>();
}

unsigned BarcodeColumn::getMinWidth() const {
    return maxOf<&AbstractBarcodeElement::getMinWidth>();
}

unsigned BarcodeColumn::getMinHeight() const {
    return sumOf<&AbstractBarcodeElement::getMinHeight>();
}

void BarcodeColumn::draw(BarcodeCanvas* canvas) {
    drawInLine(canvas, Direction::Down);
}

}  // namespace BarcodeVelko
