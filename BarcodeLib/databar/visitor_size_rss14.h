#pragma once

#include "BarcodeLib/strategy/visitor_size_linear.h"

namespace BarcodeVelko {

// Sizes the one-row RSS-14 symbol: whole pixels per module, the bars as high as the canvas less
// the text.
class VisitorSizeRSS14 : public VisitorSizeLinear {
public:
    // rootMinHeight is taken for the common signature of the one-row visitors.
    VisitorSizeRSS14(unsigned rootMinWidth, unsigned rootMinHeight, unsigned canvasWidth,
                     unsigned canvasHeight, unsigned fontHeight);

    // A null leaf throws Unexpected.
    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;
};

}  // namespace BarcodeVelko
