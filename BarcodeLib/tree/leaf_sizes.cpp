#include "BarcodeLib/tree/leaf_sizes.h"

#include "BarcodeLib/tree/abstract_barcode_element.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/barcode_text.h"

namespace BarcodeVelko {

LeafSizes::LeafSizes(AbstractBarcodeElement& root, unsigned width, unsigned height)
    : treeWidth(width), treeHeight(height) {
    root.visit(this);
}

void LeafSizes::restore(AbstractBarcodeElement& root) {
    restoring = true;
    stretch = 0;
    restored = 0;
    root.visit(this);
    restoring = false;
}

void LeafSizes::visit(BarcodeSpace* space) {
    take(space);
}

void LeafSizes::visit(BarcodeBar* bar) {
    take(bar);
}

void LeafSizes::visit(BarcodeText* text) {
    take(text);
}

void LeafSizes::take(AbstractBarcodeRect* leaf) {
    if (!restoring) {
        const Sizes sizes{leaf->getMinHeight(), leaf->getScaleX(), leaf->getScaleY()};
        if (!stretches.empty() && stretches.back().sizes == sizes) {
            ++stretches.back().leaves;
        } else {
            stretches.push_back({sizes, 1});
        }
        return;
    }
    if (restored == stretches[stretch].leaves) {
        ++stretch;
        restored = 0;
    }
    ++restored;
    const Sizes& taken = stretches[stretch].sizes;
    leaf->setMinHeight(taken.minHeight);
    leaf->setScaleX(taken.scaleX);
    leaf->setScaleY(taken.scaleY);
}

}  // namespace BarcodeVelko
