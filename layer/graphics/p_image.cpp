#include "layer/graphics/p_image.h"

#include <algorithm>
#include <cstring>

struct PImagePrivate {
    PByteArray pixels;
    unsigned width = 0;
    unsigned height = 0;
    unsigned bytesPerPixel = 4;
    unsigned pitch = 0;
};

PImage::PImage() : d(std::make_shared<PImagePrivate>()) {}

PImage::PImage(unsigned int width, unsigned int height, const PColor& background) : PImage() {
    d->width = std::min(width, kMaxSide);
    d->height = std::min(height, kMaxSide);
    d->pitch = d->width * d->bytesPerPixel;
    // A background of four equal bytes, as opaque white is, is set in the one pass that the
    // buffer needs anyway.
    const unsigned value = background.value();
    const unsigned char low = static_cast<unsigned char>(value);
    const bool oneByte = value == low * 0x01010101u;
    d->pixels = PByteArray(oneByte ? low : 0, static_cast<unsigned long>(d->pitch) * d->height);
    if (d->pixels.size() == 0) {
        d->width = d->height = d->bytesPerPixel = 0;
        d->pitch = 0;
        return;
    }
    if (!oneByte) {
        fill(value);
    }
}

PImage::PImage(unsigned int width, unsigned int height, const PByteArray& bytes) : PImage() {
    d->pixels = bytes;
    d->width = width;
    d->height = height;
    d->pitch = width * d->bytesPerPixel;
}

PImage::PImage(const PImage& other) = default;
PImage& PImage::operator=(const PImage& other) = default;
PImage::~PImage() = default;

void PImage::detach() {
    if (d.use_count() >= 2) {
        d = std::make_shared<PImagePrivate>(*d);
    }
}

bool PImage::isValid() const {
    return width() != 0 && height() != 0;
}

unsigned PImage::width() const {
    return d->width;
}

unsigned PImage::height() const {
    return d->height;
}

unsigned PImage::bytesPerPixel() const {
    return d->bytesPerPixel;
}

unsigned PImage::pitch() const {
    return d->pitch;
}

long long PImage::offsetOf(int x, int y) const {
    if (x < 0 || y < 0 || static_cast<unsigned>(x) >= d->width ||
        static_cast<unsigned>(y) >= d->height) {
        return -1;
    }
    const long long offset =
        static_cast<long long>(x) * d->bytesPerPixel + static_cast<long long>(y) * d->pitch;
    if (offset + d->bytesPerPixel > static_cast<long long>(d->pixels.size())) {
        return -1;
    }
    return offset;
}

void PImage::setPixel(int x, int y, unsigned int value) {
    const long long offset = offsetOf(x, y);
    if (offset < 0) {
        return;
    }
    detach();
    storePixel(d->pixels.data() + offset, d->bytesPerPixel, value);
}

unsigned int PImage::getPixel(int x, int y) const {
    const long long offset = offsetOf(x, y);
    if (offset < 0) {
        return 0;
    }
    return loadPixel(d->pixels.constData() + offset, d->bytesPerPixel);
}

void PImage::fill(unsigned int value) {
    const unsigned long long count = static_cast<unsigned long long>(d->width) * d->height;
    if (count == 0 || d->pixels.size() != count * d->bytesPerPixel) {
        return;
    }
    fillRows(pixelData(), d->pitch, d->bytesPerPixel, 0, 0, d->width, d->height, value);
}

void PImage::fillRect(int x, int y, unsigned width, unsigned height, unsigned int value) {
    const unsigned long long count = static_cast<unsigned long long>(d->width) * d->height;
    if (count == 0 || d->pixels.size() != count * d->bytesPerPixel ||
        !clip(x, y, width, height, d->width, d->height)) {
        return;
    }
    fillRows(pixelData(), d->pitch, d->bytesPerPixel, static_cast<unsigned>(x),
             static_cast<unsigned>(y), width, height, value);
}

bool PImage::copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) {
    const unsigned long long count = static_cast<unsigned long long>(d->width) * d->height;
    return count != 0 && d->pixels.size() == count * d->bytesPerPixel &&
           copyRows(pixelData(), d->pitch, d->bytesPerPixel, d->width, d->height, x, y, width,
                    height, toX, toY);
}

void PImage::putRect(int x, int y, const unsigned char* pixels, unsigned pitch, unsigned width,
                     unsigned height) {
    const unsigned long long size = static_cast<unsigned long long>(d->width) * d->height;
    int left = x;
    int top = y;
    if (size == 0 || d->pixels.size() != size * d->bytesPerPixel || d->bytesPerPixel != 4 ||
        !clip(left, top, width, height, d->width, d->height)) {
        return;
    }
    unsigned char* target =
        pixelData() + static_cast<size_t>(top) * d->pitch + static_cast<size_t>(left) * 4;
    const unsigned char* source =
        pixels + static_cast<size_t>(top - y) * pitch + 4 * static_cast<size_t>(left - x);
    for (unsigned row = 0; row < height; ++row, target += d->pitch, source += pitch) {
        std::memcpy(target, source, 4 * static_cast<size_t>(width));
    }
}

unsigned char* PImage::pixelData() {
    detach();
    return d->pixels.data();
}

const unsigned char* PImage::pixelData() const {
    return d->pixels.constData();
}

PByteArray PImage::data() const {
    return d->pixels;
}

PImage& PImage::changeColor(const PColor& from, const PColor& to) {
    if (from == to) {
        return *this;
    }
    detach();
    const unsigned int source = from.value();
    const unsigned int target = to.value();
    for (unsigned y = 0; y < height(); ++y) {
        for (unsigned x = 0; x < width(); ++x) {
            if (getPixel(x, y) == source) {
                setPixel(x, y, target);
            }
        }
    }
    return *this;
}
