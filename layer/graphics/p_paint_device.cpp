#include "layer/graphics/p_paint_device.h"

#include <algorithm>

struct PPaintDevicePrivate {
    unsigned char* buffer = nullptr;
    unsigned width = 0;
    unsigned height = 0;
    unsigned bytesPerPixel = 0;
    unsigned pitch = 0;
    bool owned = false;
    unsigned long size = 0;
    // Holds the buffer when owned.
    std::unique_ptr<unsigned char[]> storage;
};

PPaintDevice::PPaintDevice() : d(std::make_unique<PPaintDevicePrivate>()) {}

PPaintDevice::PPaintDevice(unsigned int width, unsigned int height, unsigned int bytesPerPixel)
    : PPaintDevice() {
    d->width = width;
    d->height = height;
    d->bytesPerPixel = bytesPerPixel;
    d->pitch = bytesPerPixel * width;
    d->size = static_cast<unsigned long>(height) * d->pitch;
    d->storage.reset(new unsigned char[d->size]);
    d->buffer = d->storage.get();
    d->owned = true;
}

PPaintDevice::PPaintDevice(unsigned char* data, unsigned int width, unsigned int height,
                           unsigned int bytesPerPixel, unsigned int pitch)
    : PPaintDevice() {
    d->buffer = data;
    d->width = width;
    d->height = height;
    d->bytesPerPixel = bytesPerPixel;
    d->pitch = pitch;
    d->size = static_cast<unsigned long>(height) * pitch;
}

PPaintDevice::~PPaintDevice() = default;

unsigned PPaintDevice::width() const {
    return d->width;
}

unsigned PPaintDevice::height() const {
    return d->height;
}

unsigned PPaintDevice::bytesPerPixel() const {
    return d->bytesPerPixel;
}

unsigned PPaintDevice::pitch() const {
    return d->pitch;
}

unsigned char* PPaintDevice::pixelAt(int x, int y) const {
    if (!d->buffer || x < 0 || y < 0 || static_cast<unsigned>(x) >= d->width ||
        static_cast<unsigned>(y) >= d->height) {
        return nullptr;
    }
    const unsigned long offset =
        static_cast<unsigned long>(y) * d->pitch + static_cast<unsigned long>(x) * d->bytesPerPixel;
    return offset + d->bytesPerPixel <= d->size ? d->buffer + offset : nullptr;
}

void PPaintDevice::setPixel(int x, int y, unsigned int value) {
    if (unsigned char* pixel = pixelAt(x, y)) {
        storePixel(pixel, d->bytesPerPixel, value);
    }
}

unsigned int PPaintDevice::getPixel(int x, int y) const {
    const unsigned char* pixel = pixelAt(x, y);
    return pixel ? loadPixel(pixel, d->bytesPerPixel) : 0;
}

void PPaintDevice::fill(unsigned int value) {
    if (!d->buffer) {
        return;
    }
    // Never past the buffer, whatever its pixel form.
    const unsigned long count =
        std::min(static_cast<unsigned long>(d->width) * d->height, d->size / 4);
    for (unsigned long i = 0; i < count; ++i) {
        storePixel(d->buffer + 4 * i, 4, value);
    }
}

void PPaintDevice::fillRect(int x, int y, unsigned width, unsigned height, unsigned int value) {
    if (!clip(x, y, width, height, d->width, d->height)) {
        return;
    }
    // The rows are filled in place only where the buffer is known to hold the whole rectangle.
    const unsigned long long end = (static_cast<unsigned long long>(y) + height - 1) * d->pitch +
                                   (static_cast<unsigned long long>(x) + width) * d->bytesPerPixel;
    if (!d->buffer || end > d->size) {
        PAbstractPaintDevice::fillRect(x, y, width, height, value);
        return;
    }
    fillRows(d->buffer, d->pitch, d->bytesPerPixel, static_cast<unsigned>(x),
             static_cast<unsigned>(y), width, height, value);
}

bool PPaintDevice::copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) {
    return copyRows(d->buffer, d->pitch, d->bytesPerPixel, d->width, d->height, x, y, width, height,
                    toX, toY);
}

unsigned char* PPaintDevice::pixelData() {
    return d->buffer;
}

const unsigned char* PPaintDevice::pixelData() const {
    return d->buffer;
}

void PPaintDevice::putRect(int x, int y, const unsigned char* pixels, unsigned pitch,
                           unsigned width, unsigned height) {
    PAbstractPaintDevice::putRect(x, y, pixels, pitch, width, height);
}
