#pragma once

#include "BarcodeLib/strategy/visitor_size_linear.h"

namespace BarcodeVelko {

// Sizes the EAN symbols: the guard bars of the text row (control leaves) reach sentinel percent
// of the font size down from the bars, so that they seem to run on below the others.
class VisitorSizeEANX : public VisitorSizeLinear {
public:
    // rootMinHeight is taken for the common signature of the linear visitors.
    VisitorSizeEANX(unsigned rootMinWidth, unsigned rootMinHeight, unsigned canvasWidth,
                    unsigned canvasHeight, unsigned fontSize, unsigned sentinel);

protected:
    unsigned runHeight(const AbstractBarcodeRect& run) const override;

private:
    unsigned guardHeight;
};

}  // namespace BarcodeVelko
