#include "BarcodeLib/code16k/visitor_size_code16k.h"

#include <algorithm>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"

namespace BarcodeVelko {

namespace {

constexpr unsigned kSymbolModules = 80;
constexpr unsigned kDataRowHeight = 8;
// A data row and the bar below it; the bar above the first row adds one more.
constexpr unsigned kRowPitch = kDataRowHeight + 1;

void sizeLeaf(AbstractBarcodeRect* leaf, unsigned width, unsigned height) {
    if (!leaf || leaf->getCustomData() == 0) {
        throw BarcodeException::Unexpected();
    }
    const unsigned rows = leaf->getCustomData();
    const unsigned byWidth = std::max(width / kSymbolModules, 1u);
    const unsigned byHeight = height / (kRowPitch * rows + 1);
    const unsigned scale = byHeight == 0 ? 1 : std::min(byWidth, byHeight);
    leaf->setMinHeight(leaf->isControl() ? 1 : kDataRowHeight);
    leaf->setScaleX(scale);
    leaf->setScaleY(scale);
}

}  // namespace

VisitorSizeCode16k::VisitorSizeCode16k(unsigned width, unsigned height)
    : width(width), height(height) {}

void VisitorSizeCode16k::visit(BarcodeSpace* space) {
    sizeLeaf(space, width, height);
}

void VisitorSizeCode16k::visit(BarcodeBar* bar) {
    sizeLeaf(bar, width, height);
}

void VisitorSizeCode16k::visit(BarcodeText*) {}

}  // namespace BarcodeVelko
