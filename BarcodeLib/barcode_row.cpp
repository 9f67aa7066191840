#include "BarcodeLib/barcode_row.h"

#include <algorithm>
#include <exception>

#include "BarcodeLib/barcode_canvas.h"
#include "BarcodeLib/barcode_exception.h"

namespace BarcodeVelko {

unsigned BarcodeRow::getWidth() const {
    try {
        unsigned width = 0;
        for (const AbstractBarcodeElement* child : children) {
            width += child->getWidth();
        }
        return width;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

unsigned BarcodeRow::getHeight() const {
    try {
        unsigned height = 0;
        for (const AbstractBarcodeElement* child : children) {
            height = std::max(height, child->getHeight());
        }
        return height;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

unsigned BarcodeRow::getMinWidth() const {
    try {
        unsigned width = 0;
        for (const AbstractBarcodeElement* child : children) {
            width += child->getMinWidth();
        }
        return width;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

unsigned BarcodeRow::getMinHeight() const {
    try {
        unsigned height = 0;
        for (const AbstractBarcodeElement* child : children) {
            height = std::max(height, child->getMinHeight());
        }
        return height;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

// Each child starts where the widths before it end; where a child leaves the pen is not
// trusted, and the pen goes back to the row's corner at the end.
void BarcodeRow::draw(BarcodeCanvas* canvas) {
    if (canvas == nullptr) {
        throw BarcodeException::Unexpected();
    }
    try {
        unsigned x0 = 0;
        unsigned y0 = 0;
        canvas->getXY(&x0, &y0);
        unsigned x = x0;
        for (AbstractBarcodeElement* child : children) {
            child->draw(canvas);
            x += child->getWidth();
            canvas->setXY(x, y0);
        }
        canvas->setXY(x0, y0);
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

}  // namespace BarcodeVelko
