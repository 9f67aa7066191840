#include "BarcodeLib/barcode_bar.h"

#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_canvas.h"
#include "BarcodeLib/barcode_exception.h"

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
