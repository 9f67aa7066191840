#include "BarcodeLib/tree/barcode_row.h"

#include <algorithm>

#include "BarcodeLib/tree/barcode_canvas.h"

namespace BarcodeVelko {

unsigned BarcodeRow::getWidth() const {
    return sumOf<&AbstractBarcodeElement::getWidth>();
}

unsigned BarcodeRow::getHeight() const {
    return maxOf<&AbstractBarcodeElement::getHeight>();
}

unsigned BarcodeRow::getMinWidth() const {
    return sumOf<&AbstractBarcodeElement::getMinWidth>();
}

unsigned BarcodeRow::getMinHeight() const {
    return maxOf<&AbstractBarcodeElement::getMinHeight>();
}

// A row of runs is the same line of pixels from top to bottom as far as its lowest run goes.
void BarcodeRow::draw(BarcodeCanvas* canvas) {
    const unsigned height = canvas ? runsHeight() : 0;
    if (height > 1 && canvas->beginBand(height)) {
        drawInLine(canvas, Direction::Across);
        canvas->endBand(getWidth());
        return;
    }
    drawInLine(canvas, Direction::Across);
}

unsigned BarcodeRow::runsHeight() const {
    if (children.empty()) {
        return 0;
    }
    unsigned height = children.front()->getHeight();
    for (const AbstractBarcodeElement* child : children) {
        if (!child->isRun()) {
            return 0;
        }
        height = std::min(height, child->getHeight());
    }
    return height;
}

}  // namespace BarcodeVelko
