#include "BarcodeLib/strategy/visitor_size_linear.h"

#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/barcode_text.h"

namespace BarcodeVelko {

namespace {

// Whole pixels per module; what is left of the canvas stays outside the symbol. An empty root
// still gets one pixel rather than a division by zero.
unsigned wholeModuleWidth(unsigned rootMinWidth, unsigned canvasWidth) {
    const unsigned width = rootMinWidth == 0 ? 0 : canvasWidth / rootMinWidth;
    return width == 0 ? 1 : width;
}

}  // namespace

VisitorSizeLinear::VisitorSizeLinear(unsigned rootMinWidth, unsigned canvasWidth,
                                     unsigned canvasHeight, unsigned fontSize)
    : fontSize(fontSize),
      moduleWidth(wholeModuleWidth(rootMinWidth, canvasWidth)),
      barHeight(canvasHeight > fontSize ? canvasHeight - fontSize : 0) {}

void VisitorSizeLinear::visit(BarcodeSpace* space) {
    sizeRun(*space);
}

void VisitorSizeLinear::visit(BarcodeBar* bar) {
    sizeRun(*bar);
}

void VisitorSizeLinear::visit(BarcodeText* text) {
    text->setScaleX(moduleWidth);
    text->setMinHeight(fontSize);
}

unsigned VisitorSizeLinear::runHeight(const AbstractBarcodeRect&) const {
    return barHeight;
}

void VisitorSizeLinear::sizeRun(AbstractBarcodeRect& run) const {
    run.setScaleX(moduleWidth);
    run.setMinHeight(runHeight(run));
}

}  // namespace BarcodeVelko
