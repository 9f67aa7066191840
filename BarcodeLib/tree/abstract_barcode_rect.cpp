#include "BarcodeLib/tree/abstract_barcode_rect.h"

#include <climits>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/leaf_block.h"

namespace BarcodeVelko {

namespace {

// A measure above INT_MAX is a negative number that went through an unsigned parameter.
unsigned checkedMeasure(unsigned value) {
    if (value > static_cast<unsigned>(INT_MAX)) {
        throw BarcodeException::Unexpected();
    }
    return value;
}

}  // namespace

AbstractBarcodeRect::AbstractBarcodeRect(unsigned minWidth, unsigned minHeight, bool control,
                                         bool lastRect)
    : minWidth(checkedMeasure(minWidth)),
      minHeight(checkedMeasure(minHeight)),
      control(control),
      lastRect(lastRect) {}

void* AbstractBarcodeRect::operator new(std::size_t size) {
    void* leaf = LeafBlock::single(size);
    if (leaf == nullptr) {
        throw std::bad_alloc();
    }
    return leaf;
}

void* AbstractBarcodeRect::operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return LeafBlock::single(size);
}

void AbstractBarcodeRect::operator delete(void* leaf) noexcept {
    LeafBlock::free(leaf);
}

void AbstractBarcodeRect::operator delete(void* leaf, const std::nothrow_t&) noexcept {
    LeafBlock::free(leaf);
}

void AbstractBarcodeRect::add(AbstractBarcodeElement*) {
    throw BarcodeException::Unexpected();
}

unsigned AbstractBarcodeRect::getWidth() const {
    return minWidth * scaleX;
}

unsigned AbstractBarcodeRect::getHeight() const {
    return minHeight * scaleY;
}

unsigned AbstractBarcodeRect::getMinWidth() const {
    return minWidth;
}

unsigned AbstractBarcodeRect::getMinHeight() const {
    return minHeight;
}

void AbstractBarcodeRect::setMinWidth(unsigned value) {
    minWidth = checkedMeasure(value);
}

void AbstractBarcodeRect::setMinHeight(unsigned value) {
    minHeight = checkedMeasure(value);
}

unsigned AbstractBarcodeRect::getScaleX() const {
    return scaleX;
}

void AbstractBarcodeRect::setScaleX(unsigned value) {
    scaleX = checkedMeasure(value);
}

unsigned AbstractBarcodeRect::getScaleY() const {
    return scaleY;
}

void AbstractBarcodeRect::setScaleY(unsigned value) {
    scaleY = checkedMeasure(value);
}

bool AbstractBarcodeRect::isControl() const {
    return control;
}

bool AbstractBarcodeRect::isLastRect() const {
    return lastRect;
}

unsigned AbstractBarcodeRect::getCustomData() const {
    return customData;
}

void AbstractBarcodeRect::setCustomData(unsigned value) {
    customData = value;
}

}  // namespace BarcodeVelko
