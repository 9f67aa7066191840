#pragma once

#include <cstddef>
#include <vector>

#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

class AbstractBarcodeElement;
class AbstractBarcodeRect;

// The sizes a size visitor writes into the leaves of a tree (pixel height and scales), taken
// before a picture sizes the tree, so that a tree taken again can be put back as generated
// rather than generated anew.
class LeafSizes : private AbstractBarcodeVisitor {
public:
    // width and height are the tree's measures as it stands, which each walk the whole tree.
    LeafSizes(AbstractBarcodeElement& root, unsigned width, unsigned height);
    void restore(AbstractBarcodeElement& root);
    unsigned width() const { return treeWidth; }
    unsigned height() const { return treeHeight; }

private:
    struct Sizes {
        unsigned minHeight;
        unsigned scaleX;
        unsigned scaleY;
        bool operator==(const Sizes& other) const {
            return minHeight == other.minHeight && scaleX == other.scaleX && scaleY == other.scaleY;
        }
    };
    // Leaves in a row with the same sizes, as the runs of a symbol mostly are.
    struct Stretch {
        Sizes sizes;
        std::size_t leaves;
    };

    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;
    void take(AbstractBarcodeRect* leaf);

    std::vector<Stretch> stretches;
    unsigned treeWidth;
    unsigned treeHeight;
    // Where restoring stands: the stretch, and the leaves of it already restored. A repeated row
    // passes its original's leaves again.
    std::size_t stretch = 0;
    std::size_t restored = 0;
    bool restoring = false;
};

}  // namespace BarcodeVelko
