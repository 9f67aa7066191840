#include "BarcodeLib/qr/visitor_size_qr.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_space.h"

namespace BarcodeVelko {

namespace {

void pinToPixels(AbstractBarcodeRect* rect) {
    if (!rect) {
        throw BarcodeException::Unexpected();
    }
    rect->setMinHeight(1);
    rect->setScaleX(1);
    rect->setScaleY(1);
}

}  // namespace

void VisitorSizeQR::visit(BarcodeSpace* space) {
    pinToPixels(space);
}

void VisitorSizeQR::visit(BarcodeBar* bar) {
    pinToPixels(bar);
}

void VisitorSizeQR::visit(BarcodeText*) {}

}  // namespace BarcodeVelko
