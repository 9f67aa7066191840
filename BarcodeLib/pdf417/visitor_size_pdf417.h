#pragma once

#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

class AbstractBarcodeRect;

// One whole scale for the symbol: the most pixels per module that let both its width and its
// rows fit the canvas, a row counting one unit of height. The aspect numbers then stretch a
// module to aspectX by aspectY units of that scale. The leaves carry the column and row count.
class VisitorSizePDF417 : public AbstractBarcodeVisitor {
public:
    VisitorSizePDF417(unsigned width, unsigned height, unsigned aspectX, unsigned aspectY);

    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;

private:
    void sizeRun(AbstractBarcodeRect* run) const;

    unsigned width;
    unsigned height;
    unsigned aspectX;
    unsigned aspectY;
};

}  // namespace BarcodeVelko
