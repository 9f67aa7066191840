#pragma once

#include "BarcodeLib/strategy/visitor_size_linear.h"

namespace BarcodeVelko {

// Sizes the 2 of 5 symbols: every bar and space as high as the canvas less the text.
class VisitorSize2of5 : public VisitorSizeLinear {
public:
    // rootMinHeight is taken for the common signature of the linear visitors.
    VisitorSize2of5(unsigned rootMinWidth, unsigned rootMinHeight, unsigned canvasWidth,
                    unsigned canvasHeight, unsigned fontSize);
};

}  // namespace BarcodeVelko
