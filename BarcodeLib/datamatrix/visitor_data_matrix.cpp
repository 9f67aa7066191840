#include "BarcodeLib/datamatrix/visitor_data_matrix.h"

#include <algorithm>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"

namespace BarcodeVelko {

VisitorDataMatrix::VisitorDataMatrix(unsigned width, unsigned height, unsigned minWidth,
                                     unsigned minHeight)
    : width(width), height(height), minWidth(minWidth), minHeight(minHeight) {}

unsigned VisitorDataMatrix::getScale() const {
    const unsigned across = minWidth ? width / minWidth : 0;
    const unsigned down = minHeight ? height / minHeight : 0;
    if (down == 0) {
        return 1;
    }
    return std::min(std::max(across, 1u), down);
}

void VisitorDataMatrix::sizeModule(AbstractBarcodeRect* rect) const {
    if (!rect) {
        throw BarcodeException::Unexpected();
    }
    const unsigned scale = getScale();
    rect->setMinHeight(1);
    rect->setScaleX(scale);
    rect->setScaleY(scale);
}

void VisitorDataMatrix::visit(BarcodeSpace* space) {
    sizeModule(space);
}

void VisitorDataMatrix::visit(BarcodeBar* bar) {
    sizeModule(bar);
}

void VisitorDataMatrix::visit(BarcodeText*) {}

}  // namespace BarcodeVelko
