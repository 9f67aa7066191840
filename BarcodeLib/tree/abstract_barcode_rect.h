#pragma once

#include <cstddef>
#include <new>

#include "BarcodeLib/tree/abstract_barcode_element.h"

namespace BarcodeVelko {

// A leaf: a run of minWidth modules. minHeight is in height units until a size visitor
// overwrites it with pixels.
class AbstractBarcodeRect : public AbstractBarcodeElement {
public:
    AbstractBarcodeRect(unsigned minWidth, unsigned minHeight, bool control, bool lastRect);

    // A symbol has hundreds of leaves: they may share one allocation (LeafBlock).
    static void* operator new(std::size_t size);
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
    static void operator delete(void* leaf) noexcept;
    static void operator delete(void* leaf, const std::nothrow_t&) noexcept;

    void add(AbstractBarcodeElement* child) override;
    unsigned getWidth() const override;
    unsigned getHeight() const override;
    unsigned getMinWidth() const override;
    unsigned getMinHeight() const override;
    bool isRun() const override { return true; }

    virtual void setMinWidth(unsigned value);
    virtual void setMinHeight(unsigned value);
    virtual unsigned getScaleX() const;
    virtual void setScaleX(unsigned value);
    virtual unsigned getScaleY() const;
    virtual void setScaleY(unsigned value);
    // Guard bars reaching into the text row, bearers, separators: sized apart by the visitor.
    virtual bool isControl() const;
    virtual bool isLastRect() const;
    virtual unsigned getCustomData() const;
    virtual void setCustomData(unsigned value);

private:
    unsigned minWidth;
    unsigned minHeight;
    unsigned scaleX = 1;
    unsigned scaleY = 1;
    bool control;
    bool lastRect;
    unsigned customData = 0;
};

}  // namespace BarcodeVelko
