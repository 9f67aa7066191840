#include "BarcodeLib/barcode_column.h"

#include <algorithm>
#include <exception>

#include "BarcodeLib/barcode_canvas.h"
#include "BarcodeLib/barcode_exception.h"

namespace BarcodeVelko {

unsigned BarcodeColumn::getWidth() const {
    try {
        unsigned width = 0;
        for (const AbstractBarcodeElement* child : children) {
            width = std::max(width, child->getWidth());
        }
        return width;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

unsigned BarcodeColumn::getHeight() const {
    try {
        unsigned height = 0;
        for (const AbstractBarcodeElement* child : children) {
            height += child->getHeight();
        }
        return height;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

unsigned BarcodeColumn::getMinWidth() const {
    try {
        unsigned width = 0;
        for (const AbstractBarcodeElement* child : children) {
            width = std::max(width, child->getMinWidth());
        }
        return width;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

unsigned BarcodeColumn::getMinHeight() const {
    try {
        unsigned height = 0;
        for (const AbstractBarcodeElement* child : children) {
            height += child->getMinHeight();
        }
        return height;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

// Every child starts at the column's left edge, below the heights before it; the pen goes back
// to the column's corner at the end.
void BarcodeColumn::draw(BarcodeCanvas* canvas) {
    if (canvas == nullptr) {
        throw BarcodeException::Unexpected();
    }
    try {
        unsigned x0 = 0;
        unsigned y0 = 0;
        canvas->getXY(&x0, &y0);
        unsigned y = y0;
        for (AbstractBarcodeElement* child : children) {
            child->draw(canvas);
            y += child->getHeight();
            canvas->setXY(x0, y);
        }
        canvas->setXY(x0, y0);
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

}  // namespace BarcodeVelko
