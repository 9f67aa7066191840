#include "BarcodeLib/tree/barcode_space.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"
#include "BarcodeLib/tree/barcode_canvas.h"

namespace BarcodeVelko {

void BarcodeSpace::visit(AbstractBarcodeVisitor* visitor) {
    if (visitor == nullptr) {
        throw BarcodeException::Unexpected();
    }
    visitor->visit(this);
}

void BarcodeSpace::draw(BarcodeCanvas* canvas) {
    if (canvas == nullptr) {
        throw BarcodeException::Unexpected();
    }
    canvas->drawSpace(getWidth(), getHeight(), isLastRect());
}

}  // namespace BarcodeVelko
