#pragma once

#include <cstddef>
#include <vector>

#include "BarcodeLib/abstract_barcode_visitor.h"

namespace BarcodeVelko {

class AbstractBarcodeElement;
class AbstractBarcodeRect;

// The sizes a size visitor writes into the leaves of a tree (pixel height and scales), taken
// before and put back after a picture, so that the tree stays as generated and the next picture
// of the same settings needs no generation.
class LeafSizes : private AbstractBarcodeVisitor {
public:
    explicit LeafSizes(AbstractBarcodeElement& root);
    void restore(AbstractBarcodeElement& root);

private:
    struct Sizes {
        unsigned minHeight;
        unsigned scaleX;
        unsigned scaleY;
    };

    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;
    void take(AbstractBarcodeRect* leaf);

    std::vector<Sizes> sizes;
    // Leaves visited so far while restoring; a repeated row passes its original's leaves again.
    std::size_t next = 0;
    bool restoring = false;
};

}  // namespace BarcodeVelko
