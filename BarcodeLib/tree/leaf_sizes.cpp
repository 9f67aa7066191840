#include "BarcodeLib/tree/leaf_sizes.h"

#include "BarcodeLib/tree/abstract_barcode_element.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/barcode_text.h"

namespace BarcodeVelko {

namespace {

constexpr std::size_t kLinearLeaves = 128;

}  // namespace

LeafSizes::LeafSizes(AbstractBarcodeElement& root, unsigned width, unsigned height,
                     AbstractBarcodeVisitor& sizing)
    : sizing(sizing), treeWidth(width), treeHeight(height) {
    // Room for a linear symbol's leaves at once; a larger tree grows from there.
    kept.reserve(kLinearLeaves);
    root.visit(this);
}

void LeafSizes::restore() {
    // Last first, so that a leaf passed twice ends with its first entry.
    for (auto entry = kept.rbegin(); entry != kept.rend(); ++entry) {
        entry->leaf->setMinHeight(entry->minHeight);
        entry->leaf->setScaleX(entry->scaleX);
        entry->leaf->setScaleY(entry->scaleY);
    }
}

void LeafSizes::visit(BarcodeSpace* space) {
    keep(space);
    sizing.visit(space);
}

void LeafSizes::visit(BarcodeBar* bar) {
    keep(bar);
    sizing.visit(bar);
}

void LeafSizes::visit(BarcodeText* text) {
    keep(text);
    sizing.visit(text);
}

void LeafSizes::keep(AbstractBarcodeRect* leaf) {
    kept.push_back({leaf, leaf->getMinHeight(), leaf->getScaleX(), leaf->getScaleY()});
}

}  // namespace BarcodeVelko
