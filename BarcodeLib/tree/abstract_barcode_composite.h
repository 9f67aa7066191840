#pragma once

#include <exception>
#include <vector>

#include "BarcodeLib/tree/abstract_barcode_element.h"

namespace BarcodeVelko {

// A node that owns its children, in order.
class AbstractBarcodeComposite : public AbstractBarcodeElement {
public:
    AbstractBarcodeComposite() = default;
    AbstractBarcodeComposite(const AbstractBarcodeComposite&) = delete;
    AbstractBarcodeComposite& operator=(const AbstractBarcodeComposite&) = delete;
    ~AbstractBarcodeComposite() override;

    void add(AbstractBarcodeElement* child) override;
    void visit(AbstractBarcodeVisitor* visitor) override;
    // Room for more children to come, grown as push_back would grow it but from 64 on, so that a
    // pattern's runs take one reallocation at most. False when memory runs out.
    bool makeRoomFor(std::size_t more) noexcept;
    // Adds a child into the room that makeRoomFor made, which nothing can fail.
    void addInRoom(AbstractBarcodeElement* child) noexcept { children.push_back(child); }
    // The child added last, null while there is none.
    AbstractBarcodeElement* lastChild() const {
        return children.empty() ? nullptr : children.back();
    }

protected:
    using Measure = unsigned (AbstractBarcodeElement::*)() const;
    enum class Direction { Across, Down };

    // One measure of the children, added up or the largest of them. The measure is a constant,
    // so that each child costs one virtual call: a size walks every leaf of the tree.
    template <Measure measure>
    unsigned sumOf() const {
        return fold<measure>([](unsigned total, unsigned value) { return total + value; });
    }
    template <Measure measure>
    unsigned maxOf() const {
        return fold<measure>(
            [](unsigned largest, unsigned value) { return value > largest ? value : largest; });
    }
    // Draws the children in order from the pen's place, each moved on by the widths (Across) or
    // heights (Down) of those before it. Where a child leaves the pen is not trusted, and the pen
    // goes back to where it started at the end.
    void drawInLine(BarcodeCanvas* canvas, Direction direction);
    // Draws the children from first up to last, the first at (x, y), each moved on by the width
    // (Across) or height (Down) of the one before; gives the place after the last, x or y.
    unsigned drawRange(BarcodeCanvas* canvas, Direction direction, std::size_t first,
                       std::size_t last, unsigned x, unsigned y);

    std::vector<AbstractBarcodeElement*> children;

private:
    template <Measure measure, class Combine>
    unsigned fold(Combine combine) const {
        try {
            unsigned result = 0;
            for (const AbstractBarcodeElement* child : children) {
                result = combine(result, (child->*measure)());
            }
            return result;
        } catch (const std::exception&) {
            throwUnexpected();
        }
    }
    [[noreturn]] static void throwUnexpected();
};

}  // namespace BarcodeVelko
