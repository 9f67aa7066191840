#pragma once

#include "BarcodeLib/tree/abstract_barcode_composite.h"

namespace BarcodeVelko {

// Children one under the other, all from the column's left edge.
class BarcodeColumn : public AbstractBarcodeComposite {
public:
    unsigned getWidth() const override;
    unsigned getHeight() const override;
    unsigned getMinWidth() const override;
    unsigned getMinHeight() const override;
    void draw(BarcodeCanvas* canvas) override;
};

}  // namespace BarcodeVelko
