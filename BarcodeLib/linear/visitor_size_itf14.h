#pragma once

#include "BarcodeLib/strategy/visitor_size_linear.h"

namespace BarcodeVelko {

// Sizes ITF-14 in its bearer frame: the bearers (control runs) are 4 module widths high, and the
// symbol row gives up those 8 module widths of its height to them.
class VisitorSizeITF14 : public VisitorSizeLinear {
public:
    // rootMinHeight is taken for the common signature of the linear visitors.
    VisitorSizeITF14(unsigned rootMinWidth, unsigned rootMinHeight, unsigned canvasWidth,
                     unsigned canvasHeight, unsigned fontSize);

protected:
    unsigned runHeight(const AbstractBarcodeRect& run) const override;
};

}  // namespace BarcodeVelko
