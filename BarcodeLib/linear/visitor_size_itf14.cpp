#include "BarcodeLib/linear/visitor_size_itf14.h"

#include "BarcodeLib/tree/abstract_barcode_rect.h"

namespace BarcodeVelko {

namespace {

const unsigned kBearerModules = 4;

}  // namespace

VisitorSizeITF14::VisitorSizeITF14(unsigned rootMinWidth, unsigned, unsigned canvasWidth,
                                   unsigned canvasHeight, unsigned fontSize)
    : VisitorSizeLinear(rootMinWidth, canvasWidth, canvasHeight, fontSize) {}

unsigned VisitorSizeITF14::runHeight(const AbstractBarcodeRect& run) const {
    const unsigned bearer = kBearerModules * getModuleWidth();
    if (run.isControl()) {
        return bearer;
    }
    // Too low a picture keeps the frame and loses the bars.
    return getBarHeight() > 2 * bearer ? getBarHeight() - 2 * bearer : 0;
}

}  // namespace BarcodeVelko
