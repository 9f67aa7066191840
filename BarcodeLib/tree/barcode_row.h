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
    // The stretch of runs from child first on, up to last: the height that each of them covers,
    // the least of theirs (0 for none, last then first).
    unsigned runsHeight(std::size_t first, std::size_t& last) const;
};

}  // namespace BarcodeVelko
