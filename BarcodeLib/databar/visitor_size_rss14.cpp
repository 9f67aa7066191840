#include "BarcodeLib/databar/visitor_size_rss14.h"

#include "BarcodeLib/errors/barcode_exception.h"

namespace BarcodeVelko {

namespace {

template <class Leaf>
Leaf* present(Leaf* leaf) {
    if (!leaf) {
        throw BarcodeException::Unexpected();
    }
    return leaf;
}

}  // namespace

VisitorSizeRSS14::VisitorSizeRSS14(unsigned rootMinWidth, unsigned, unsigned canvasWidth,
                                   unsigned canvasHeight, unsigned fontHeight)
    : VisitorSizeLinear(rootMinWidth, canvasWidth, canvasHeight, fontHeight) {}

void VisitorSizeRSS14::visit(BarcodeSpace* space) {
    VisitorSizeLinear::visit(present(space));
}

void VisitorSizeRSS14::visit(BarcodeBar* bar) {
    VisitorSizeLinear::visit(present(bar));
}

void VisitorSizeRSS14::visit(BarcodeText* text) {
    VisitorSizeLinear::visit(present(text));
}

}  // namespace BarcodeVelko
