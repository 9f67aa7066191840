#include "BarcodeLib/abstract_barcode_composite.h"

#include <exception>
#include <new>

#include "BarcodeLib/barcode_exception.h"

namespace BarcodeVelko {

AbstractBarcodeComposite::~AbstractBarcodeComposite() {
    for (AbstractBarcodeElement* child : children) {
        delete child;
    }
}

// On a throw the caller keeps the child, so that its owning pointer can still free it.
void AbstractBarcodeComposite::add(AbstractBarcodeElement* child) {
    if (child == nullptr || child == this) {
        throw BarcodeException::Unexpected();
    }
    try {
        children.push_back(child);
    } catch (const std::bad_alloc&) {
        throw BarcodeException::OutOfMemory();
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

void AbstractBarcodeComposite::visit(AbstractBarcodeVisitor* visitor) {
    if (visitor == nullptr) {
        throw BarcodeException::Unexpected();
    }
    try {
        for (AbstractBarcodeElement* child : children) {
            child->visit(visitor);
        }
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

}  // namespace BarcodeVelko
