#include "BarcodeLib/tree/barcode_bar.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"
#include "BarcodeLib/tree/barcode_canvas.h"

namespace BarcodeVelko {

void BarcodeBar::visit(AbstractBarcodeVisitor* visitor) {
    if (visitor == nullptr) {
        throw BarcodeException::Unexpected();
    }
    visitor->visit(this);
}

void BarcodeBar::draw(BarcodeCanvas* canvas) {
    if (canvas == nullptr) {
        throw BarcodeException::Unexpected();
    }
    canvas->drawBar(getWidth(), getHeight(), isLastRect());
}

}  // namespace BarcodeVelko
