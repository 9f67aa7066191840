#include "BarcodeLib/databar/visitor_size_gs1_databar_expanded_stacked.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/barcode_text.h"

namespace BarcodeVelko {

namespace {

void pinScales(AbstractBarcodeRect* rect) {
    if (!rect) {
        throw BarcodeException::Unexpected();
    }
    rect->setScaleX(1);
    rect->setScaleY(1);
}

}  // namespace

VisitorSizeGS1DatabarExpandedStacked::VisitorSizeGS1DatabarExpandedStacked(unsigned, unsigned,
                                                                           unsigned, unsigned,
                                                                           unsigned fontHeight)
    : fontHeight(fontHeight) {}

void VisitorSizeGS1DatabarExpandedStacked::visit(BarcodeSpace* space) {
    pinScales(space);
}

void VisitorSizeGS1DatabarExpandedStacked::visit(BarcodeBar* bar) {
    pinScales(bar);
}

void VisitorSizeGS1DatabarExpandedStacked::visit(BarcodeText* text) {
    if (!text) {
        throw BarcodeException::Unexpected();
    }
    text->setMinHeight(fontHeight);
    pinScales(text);
}

}  // namespace BarcodeVelko
