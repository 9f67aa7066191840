#pragma once

#include <vector>

#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

class AbstractBarcodeElement;
class AbstractBarcodeRect;

// The sizes a size visitor writes into the leaves of a tree (pixel height and scales), taken as
// the visitor first sizes the tree, so that a tree taken again can be put back as generated
// rather than generated anew.
class LeafSizes : private AbstractBarcodeVisitor {
public:
    // Sizes the tree with sizing, each leaf's sizes kept just before it is sized. width and
    // height are the tree's measures as generated.
    LeafSizes(AbstractBarcodeElement& root, unsigned width, unsigned height,
              AbstractBarcodeVisitor& sizing);
    // Puts the kept sizes back into the leaves, which must still be those of the tree.
    void restore();
    unsigned width() const { return treeWidth; }
    unsigned height() const { return treeHeight; }

private:
    struct Kept {
        AbstractBarcodeRect* leaf;
        unsigned minHeight;
        unsigned scaleX;
        unsigned scaleY;
    };

    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;
    void keep(AbstractBarcodeRect* leaf);

    // A repeated row passes its original's leaves again, sized by then: each leaf's first entry
    // holds its sizes as generated.
    std::vector<Kept> kept;
    AbstractBarcodeVisitor& sizing;
    unsigned treeWidth;
    unsigned treeHeight;
};

}  // namespace BarcodeVelko
