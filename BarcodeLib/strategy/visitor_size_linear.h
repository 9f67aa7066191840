#pragma once

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/tree/abstract_barcode_element.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"

namespace BarcodeVelko {

class AbstractBarcodeRect;

// The sizing that every one-row symbology shares: each leaf gets the same whole number of pixels
// per module, a text gets the font size as its height, and a bar or space the height that
// runHeight gives, by default the canvas height less the text's.
class VisitorSizeLinear : public AbstractBarcodeVisitor {
public:
    void visit(BarcodeSpace* space) override;
    void visit(BarcodeBar* bar) override;
    void visit(BarcodeText* text) override;

    unsigned getModuleWidth() const { return moduleWidth; }
    unsigned getBarHeight() const { return barHeight; }

protected:
    VisitorSizeLinear(unsigned rootMinWidth, unsigned canvasWidth, unsigned canvasHeight,
                      unsigned fontSize);

    // The height in pixels of a bar or space.
    virtual unsigned runHeight(const AbstractBarcodeRect& run) const;

    unsigned getFontSize() const { return fontSize; }

private:
    void sizeRun(AbstractBarcodeRect& run) const;

    unsigned fontSize;
    unsigned moduleWidth;
    unsigned barHeight;
};

// The sizeVisitor of a linear strategy: a new Visitor for the tree under root, which must not be
// null, over the canvas; extra goes to its constructor after the font size.
template <class Visitor, class... Extra>
AbstractBarcodeVisitor* newSizeVisitor(const AbstractBarcodeElement* root, unsigned canvasWidth,
                                       unsigned canvasHeight, unsigned fontSize, Extra... extra) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    return newOrThrow<Visitor>(root->getMinWidth(), root->getMinHeight(), canvasWidth, canvasHeight,
                               fontSize, extra...);
}

}  // namespace BarcodeVelko
