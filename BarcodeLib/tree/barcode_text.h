#pragma once

#include <string>

#include "BarcodeLib/tree/abstract_barcode_rect.h"

namespace BarcodeVelko {

// The human-readable line. With height 0 (text switched off) it takes no width either.
class BarcodeText : public AbstractBarcodeRect {
public:
    BarcodeText(unsigned minWidth, unsigned minHeight, const wchar_t* text);

    void visit(AbstractBarcodeVisitor* visitor) override;
    void draw(BarcodeCanvas* canvas) override;
    unsigned getWidth() const override;
    unsigned getMinWidth() const override;
    bool isRun() const override { return false; }

    // A new zero-ended copy, freed by the caller with delete[].
    virtual wchar_t* getText() const;

private:
    std::wstring text;
};

}  // namespace BarcodeVelko
