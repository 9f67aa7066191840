#pragma once

#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

// Sizes a Code 16K tree at one whole scale X for both directions, the largest that fits the
// canvas: 80X wide, data rows 8X high and the bars between and around them X. Every leaf
// carries the symbol's row count as its customData.
class VisitorSizeCode16k : public AbstractBarcodeVisitor {
public:
    VisitorSizeCode16k(unsigned width, unsigned height);

    // A null leaf or one without a row count throws Unexpected.
    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;

private:
    unsigned width;
    unsigned height;
};

}  // namespace BarcodeVelko
