#include "BarcodeLib/linear/visitor_size_ean13_addon2.h"

#include "BarcodeLib/tree/abstract_barcode_rect.h"

namespace BarcodeVelko {

namespace {

const unsigned kUpperRow = 1;

}  // namespace

unsigned VisitorSizeEAN13AddOn2::runHeight(const AbstractBarcodeRect& run) const {
    if (run.isControl()) {
        return VisitorSizeEANX::runHeight(run);
    }
    if (run.getCustomData() == kUpperRow) {
        return getFontSize();
    }
    // The canvas less two text heights: the bar height already lacks one.
    return getBarHeight() > getFontSize() ? getBarHeight() - getFontSize() : 0;
}

}  // namespace BarcodeVelko
