#include "layer/graphics/p_abstract_paint_device.h"

std::unique_ptr<PAbstractPaintDevice> PAbstractPaintDevice::fragment(int, int, unsigned, unsigned) {
    return nullptr;
}

void PAbstractPaintDevice::storePixel(unsigned char* target, unsigned bytesPerPixel,
                                      unsigned int value) {
    // The usual case, spelled out so that it becomes one store.
    if (bytesPerPixel >= 4) {
        target[0] = static_cast<unsigned char>(value);
        target[1] = static_cast<unsigned char>(value >> 8);
        target[2] = static_cast<unsigned char>(value >> 16);
        target[3] = static_cast<unsigned char>(value >> 24);
        return;
    }
    for (unsigned i = 0; i < bytesPerPixel && i < 4; ++i) {
        target[i] = static_cast<unsigned char>(value >> (8 * i));
    }
}

unsigned int PAbstractPaintDevice::loadPixel(const unsigned char* source, unsigned bytesPerPixel) {
    unsigned int value = 0;
    for (unsigned i = 0; i < bytesPerPixel && i < 4; ++i) {
        value |= static_cast<unsigned int>(source[i]) << (8 * i);
    }
    return value;
}
