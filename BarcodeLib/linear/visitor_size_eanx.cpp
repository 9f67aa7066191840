#include "BarcodeLib/linear/visitor_size_eanx.h"

#include <cstdint>

#include "BarcodeLib/tree/abstract_barcode_rect.h"

namespace BarcodeVelko {

VisitorSizeEANX::VisitorSizeEANX(unsigned rootMinWidth, unsigned, unsigned canvasWidth,
                                 unsigned canvasHeight, unsigned fontSize, unsigned sentinel)
    : VisitorSizeLinear(rootMinWidth, canvasWidth, canvasHeight, fontSize),
      guardHeight(static_cast<unsigned>(std::uint64_t{fontSize} * sentinel / 100)) {}

unsigned VisitorSizeEANX::runHeight(const AbstractBarcodeRect& run) const {
    return run.isControl() ? guardHeight : getBarHeight();
}

}  // namespace BarcodeVelko
