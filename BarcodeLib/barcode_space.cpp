#include "BarcodeLib/barcode_space.h"

#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_canvas.h"
#include "BarcodeLib/barcode_exception.h"

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
