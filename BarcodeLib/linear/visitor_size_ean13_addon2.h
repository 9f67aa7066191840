#pragma once

#include "BarcodeLib/linear/visitor_size_eanx.h"

namespace BarcodeVelko {

// Sizes EAN-13 with an add-on, a column of three rows: the upper part of the main bars beside
// the add-on's digits (customData 1) is one text high, the lower part with the add-on's bars
// takes the rest of the canvas less the main text, and the guard bars of the text row (control
// leaves) reach sentinel percent of the font size down, as in the plain EAN symbols.
class VisitorSizeEAN13AddOn2 : public VisitorSizeEANX {
public:
    using VisitorSizeEANX::VisitorSizeEANX;

protected:
    unsigned runHeight(const AbstractBarcodeRect& run) const override;
};

}  // namespace BarcodeVelko
