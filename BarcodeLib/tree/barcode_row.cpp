#include "BarcodeLib/tree/barcode_row.h"

#include <algorithm>

#include "BarcodeLib/tree/barcode_canvas.h"

namespace BarcodeVelko {

unsigned BarcodeRow::getWidth() const {
    return sumOf<&AbstractBarcodeElement::getWidth>();
}

unsigned BarcodeRow::getHeight() const {
    return maxOf<&AbstractBarcodeElement::getHeight>();
}

unsigned BarcodeRow::getMinWidth() const {
    return sumOf<&AbstractBarcodeElement::getMinWidth>();
}

unsigned BarcodeRow::getMinHeight() const {
    return maxOf<&AbstractBarcodeElement::getMinHeight>();
}

namespace {

// A stretch of fewer runs, between texts, is drawn as it is: copying its line down costs more.
constexpr std::size_t kFewestBandRuns = 8;

}  // namespace

// A stretch of runs, a whole row of them or those between its texts, is the same line of pixels
// from top to bottom as far as its lowest run goes: that line is drawn once and copied down.
void BarcodeRow::draw(BarcodeCanvas* canvas) {
    if (canvas == nullptr) {
        drawInLine(canvas, Direction::Across);
        return;
    }
    unsigned x0 = 0;
    unsigned y0 = 0;
    canvas->getXY(&x0, &y0);
    unsigned x = x0;
    for (std::size_t first = 0; first < children.size();) {
        std::size_t last = first;
        const unsigned height = runsHeight(first, last);
        if (last == first) {
            x = drawRange(canvas, Direction::Across, first, first + 1, x, y0);
            first += 1;
            continue;
        }
        const bool wholeRow = first == 0 && last == children.size();
        canvas->setXY(x, y0);
        const bool band = height > 1 && (wholeRow || last - first >= kFewestBandRuns) &&
                          canvas->beginBand(height);
        const unsigned end = drawRange(canvas, Direction::Across, first, last, x, y0);
        if (band) {
            canvas->setXY(x, y0);
            canvas->endBand(end - x);
        }
        x = end;
        first = last;
    }
    canvas->setXY(x0, y0);
}

unsigned BarcodeRow::runsHeight(std::size_t first, std::size_t& last) const {
    unsigned height = 0;
    for (last = first; last < children.size() && children[last]->isRun(); ++last) {
        const unsigned run = children[last]->getHeight();
        height = last == first ? run : std::min(height, run);
    }
    return height;
}

}  // namespace BarcodeVelko
