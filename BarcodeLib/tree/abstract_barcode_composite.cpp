#include "BarcodeLib/tree/abstract_barcode_composite.h"

#include <algorithm>
#include <exception>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/guarded.h"
#include "BarcodeLib/tree/barcode_canvas.h"

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
    guarded([&] { children.push_back(child); });
}

namespace {

// A row of a linear symbol holds some 60 runs: room for them from the first pattern on.
constexpr std::size_t kFirstRoom = 64;

}  // namespace

bool AbstractBarcodeComposite::makeRoomFor(std::size_t more) noexcept {
    const std::size_t needed = children.size() + more;
    if (needed <= children.capacity()) {
        return true;
    }
    try {
        children.reserve(std::max({needed, 2 * children.capacity(), kFirstRoom}));
        return true;
    } catch (const std::exception&) {
        return false;
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

void AbstractBarcodeComposite::throwUnexpected() {
    throw BarcodeException::Unexpected();
}

void AbstractBarcodeComposite::drawInLine(BarcodeCanvas* canvas, Direction direction) {
    if (canvas == nullptr) {
        throw BarcodeException::Unexpected();
    }
    unsigned x0 = 0;
    unsigned y0 = 0;
    canvas->getXY(&x0, &y0);
    drawRange(canvas, direction, 0, children.size(), x0, y0);
    canvas->setXY(x0, y0);
}

unsigned AbstractBarcodeComposite::drawRange(BarcodeCanvas* canvas, Direction direction,
                                             std::size_t first, std::size_t last, unsigned x,
                                             unsigned y) {
    if (canvas == nullptr || first > last || last > children.size()) {
        throw BarcodeException::Unexpected();
    }
    try {
        for (std::size_t i = first; i < last; ++i) {
            AbstractBarcodeElement* child = children[i];
            canvas->setXY(x, y);
            child->draw(canvas);
            if (direction == Direction::Across) {
                x += child->getWidth();
            } else {
                y += child->getHeight();
            }
        }
        return direction == Direction::Across ? x : y;
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
}

}  // namespace BarcodeVelko
