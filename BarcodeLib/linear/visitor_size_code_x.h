#pragma once

#include "BarcodeLib/strategy/visitor_size_linear.h"

namespace BarcodeVelko {

// Sizes the plain one-row symbols: every bar and space as high as the canvas less the text.
class VisitorSizeCodeX : public VisitorSizeLinear {
public:
    // rootMinHeight and sentinel are taken for the common signature of the linear visitors.
    VisitorSizeCodeX(unsigned rootMinWidth, unsigned rootMinHeight, unsigned canvasWidth,
                     unsigned canvasHeight, unsigned fontSize, unsigned sentinel);
};

}  // namespace BarcodeVelko
