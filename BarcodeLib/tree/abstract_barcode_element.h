#pragma once

namespace BarcodeVelko {

class AbstractBarcodeVisitor;
class BarcodeCanvas;

// A node of a symbol's tree. Widths count modules until a size visitor has set the scales.
class AbstractBarcodeElement {
public:
    virtual void add(AbstractBarcodeElement* child) = 0;
    virtual void visit(AbstractBarcodeVisitor* visitor) = 0;
    virtual unsigned getWidth() const = 0;
    virtual unsigned getHeight() const = 0;
    virtual unsigned getMinWidth() const = 0;
    virtual unsigned getMinHeight() const = 0;
    virtual void draw(BarcodeCanvas* canvas) = 0;
    // A bar or a space: one colour over its whole width and height.
    virtual bool isRun() const { return false; }
    virtual ~AbstractBarcodeElement() = default;
};

}  // namespace BarcodeVelko
