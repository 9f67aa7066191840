#pragma once

#include "BarcodeLib/tree/abstract_barcode_composite.h"

namespace BarcodeVelko {

// Children side by side, all from the row's top edge.
class BarcodeRow : public AbstractBarcodeComposite {
public:
    unsigned getWidth() const override;
    unsigned getHeight() const override;
    unsigned getMinWidth() const override;
    unsigned getMinHeight() const override;
    void draw(BarcodeCanvas* canvas) override;

private:
    // The height that every child covers, the least of theirs, when all are runs; 0 otherwise.
    unsigned runsHeight() const;
};

}  // namespace BarcodeVelko
