#pragma once

#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

// The QR tree already counts in pixels: every leaf keeps its width and is one pixel high.
class VisitorSizeQR : public AbstractBarcodeVisitor {
public:
    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;
};

}  // namespace BarcodeVelko
