#pragma once

#include "BarcodeLib/tree/abstract_barcode_rect.h"

namespace BarcodeVelko {

// A dark run.
class BarcodeBar final : public AbstractBarcodeRect {
public:
    using AbstractBarcodeRect::AbstractBarcodeRect;

    void visit(AbstractBarcodeVisitor* visitor) override;
    void draw(BarcodeCanvas* canvas) override;
};

}  // namespace BarcodeVelko
