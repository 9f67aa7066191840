#include "BarcodeLib/pdf417/visitor_size_pdf417.h"

#include <algorithm>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"

namespace BarcodeVelko {

namespace {

// Start, stop and the two row indicators around the data columns.
constexpr unsigned kModulesPerColumn = 17;
constexpr unsigned kModulesAround = 69;

}  // namespace

VisitorSizePDF417::VisitorSizePDF417(unsigned width, unsigned height, unsigned aspectX,
                                     unsigned aspectY)
    : width(width), height(height), aspectX(aspectX), aspectY(aspectY) {}

void VisitorSizePDF417::visit(BarcodeSpace* space) {
    sizeRun(space);
}

void VisitorSizePDF417::visit(BarcodeBar* bar) {
    sizeRun(bar);
}

void VisitorSizePDF417::visit(BarcodeText*) {}

void VisitorSizePDF417::sizeRun(AbstractBarcodeRect* run) const {
    if (!run || run->getCustomData() == 0) {
        throw BarcodeException::Unexpected();
    }
    const unsigned columns = run->getCustomData() >> 16;
    const unsigned rows = run->getCustomData() & 0xffff;
    const unsigned byWidth = std::max(width / (kModulesPerColumn * columns + kModulesAround), 1u);
    const unsigned byHeight = rows != 0 ? height / rows : 0;
    const unsigned scale = byHeight == 0 ? 1 : std::min(byWidth, byHeight);
    run->setMinHeight(1);
    run->setScaleX(scale * aspectX);
    run->setScaleY(scale * aspectY);
}

}  // namespace BarcodeVelko
