#pragma once

#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

// The DataBar tree already counts in pixels, its modules chosen for the picture when it was
// built: bars and spaces keep their sizes, and the text lines get the font's height. The canvas
// and the aspect ratio play no part.
class VisitorSizeGS1DatabarExpandedStacked : public AbstractBarcodeVisitor {
public:
    VisitorSizeGS1DatabarExpandedStacked(unsigned canvasWidth, unsigned canvasHeight,
                                         unsigned aspectX, unsigned aspectY, unsigned fontHeight);
    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;

private:
    unsigned fontHeight;
};

}  // namespace BarcodeVelko
