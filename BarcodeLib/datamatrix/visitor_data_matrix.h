#pragma once

#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

class AbstractBarcodeRect;

// Sizes a matrix symbol counted in modules: the largest whole number of pixels a module that
// fits both sides of the canvas, the same across and down, so that modules stay square whatever
// the aspect ratio. A canvas smaller than the symbol gives one pixel a module.
class VisitorDataMatrix : public AbstractBarcodeVisitor {
public:
    VisitorDataMatrix(unsigned width, unsigned height, unsigned minWidth, unsigned minHeight);

    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;

    unsigned getScale() const;

private:
    void sizeModule(AbstractBarcodeRect* rect) const;

    unsigned width;
    unsigned height;
    unsigned minWidth;
    unsigned minHeight;
};

}  // namespace BarcodeVelko
