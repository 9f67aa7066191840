#pragma once

namespace BarcodeVelko {

class BarcodeSpace;
class BarcodeBar;
class BarcodeText;

// An operation on the leaves of a tree; composites only pass it on.
class AbstractBarcodeVisitor {
public:
    virtual void visit(BarcodeSpace* space) = 0;
    virtual void visit(BarcodeBar* bar) = 0;
    virtual void visit(BarcodeText* text) = 0;
    virtual ~AbstractBarcodeVisitor() = default;
};

}  // namespace BarcodeVelko
