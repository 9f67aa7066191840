#pragma once

#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

// A row that shows another row's leaves again, for pixel lines that repeat the line above: it
// measures, draws and passes visitors on as that row does, and owns nothing. The row it repeats
// must live as long as it does, as siblings in one column do.
class BarcodeRepeatedRow : public BarcodeRow {
public:
    explicit BarcodeRepeatedRow(BarcodeRow* original);

    void add(AbstractBarcodeElement* child) override;
    void visit(AbstractBarcodeVisitor* visitor) override;
    unsigned getWidth() const override;
    unsigned getHeight() const override;
    unsigned getMinWidth() const override;
    unsigned getMinHeight() const override;
    void draw(BarcodeCanvas* canvas) override;

private:
    BarcodeRow* original;
};

}  // namespace BarcodeVelko
