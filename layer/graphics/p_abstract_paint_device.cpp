#include "layer/graphics/p_abstract_paint_device.h"

#include <algorithm>
#include <cstring>

namespace {

// Widest span, in pixels, that is stored pixel by pixel rather than copied.
constexpr unsigned kNarrowSpan = 8;

}  // namespace

std::unique_ptr<PAbstractPaintDevice> PAbstractPaintDevice::fragment(int, int, unsigned, unsigned) {
    return nullptr;
}

void PAbstractPaintDevice::fillRect(int x, int y, unsigned width, unsigned height,
                                    unsigned int value) {
    if (!clip(x, y, width, height, this->width(), this->height())) {
        return;
    }
    for (unsigned row = 0; row < height; ++row) {
        for (unsigned column = 0; column < width; ++column) {
            setPixel(x + static_cast<int>(column), y + static_cast<int>(row), value);
        }
    }
}

bool PAbstractPaintDevice::copyRect(int, int, unsigned, unsigned, int, int) {
    return false;
}

void PAbstractPaintDevice::putRect(int x, int y, const unsigned char* pixels, unsigned pitch,
                                   unsigned width, unsigned height) {
    for (unsigned row = 0; row < height; ++row, pixels += pitch) {
        for (unsigned i = 0; i < width; ++i) {
            setPixel(x + static_cast<int>(i), y + static_cast<int>(row),
                     loadPixel(pixels + 4 * i, 4));
        }
    }
}

bool PAbstractPaintDevice::clip(int& x, int& y, unsigned& width, unsigned& height,
                                unsigned deviceWidth, unsigned deviceHeight) {
    const long long left = std::max<long long>(x, 0);
    const long long top = std::max<long long>(y, 0);
    const long long right = std::min<long long>(0LL + x + width, deviceWidth);
    const long long bottom = std::min<long long>(0LL + y + height, deviceHeight);
    if (left >= right || top >= bottom) {
        return false;
    }
    x = static_cast<int>(left);
    y = static_cast<int>(top);
    width = static_cast<unsigned>(right - left);
    height = static_cast<unsigned>(bottom - top);
    return true;
}

void PAbstractPaintDevice::fillRows(unsigned char* data, unsigned pitch, unsigned bytesPerPixel,
                                    unsigned x, unsigned y, unsigned width, unsigned height,
                                    unsigned int value) {
    unsigned char* first =
        data + static_cast<size_t>(y) * pitch + static_cast<size_t>(x) * bytesPerPixel;
    const size_t span = static_cast<size_t>(width) * bytesPerPixel;
    // Pixels of four bytes, the pictures' own, are stored one by one where a copy call would
    // cost more: the first row, and every row of a narrow bar (most of a linear symbol).
    if (bytesPerPixel == 4) {
        unsigned char pixel[4];
        storePixel(pixel, 4, value);
        for (unsigned row = 0; row < height; ++row) {
            unsigned char* target = first + static_cast<size_t>(row) * pitch;
            if (row > 0 && width > kNarrowSpan) {
                std::memcpy(target, first, span);
                continue;
            }
            for (unsigned column = 0; column < width; ++column) {
                std::memcpy(target + 4 * column, pixel, 4);
            }
        }
        return;
    }
    storePixel(first, bytesPerPixel, value);
    // The span doubles itself: a few large copies instead of a store per pixel.
    for (size_t filled = bytesPerPixel; filled < span;) {
        const size_t copied = std::min(filled, span - filled);
        std::memcpy(first + filled, first, copied);
        filled += copied;
    }
    for (unsigned row = 1; row < height; ++row) {
        std::memcpy(first + static_cast<size_t>(row) * pitch, first, span);
    }
}

bool PAbstractPaintDevice::copyRows(unsigned char* data, unsigned pitch, unsigned bytesPerPixel,
                                    unsigned deviceWidth, unsigned deviceHeight, int x, int y,
                                    unsigned width, unsigned height, int toX, int toY) {
    auto inside = [&](long long left, long long top) {
        return left >= 0 && top >= 0 && left + width <= deviceWidth && top + height <= deviceHeight;
    };
    if (!data || width == 0 || height == 0 || !inside(x, y) || !inside(toX, toY)) {
        return false;
    }
    const size_t span = static_cast<size_t>(width) * bytesPerPixel;
    // Rows go in the order that leaves an overlapping source intact until it is copied.
    for (unsigned i = 0; i < height; ++i) {
        const unsigned row = toY > y ? height - 1 - i : i;
        std::memmove(
            data + static_cast<size_t>(toY + row) * pitch +
                static_cast<size_t>(toX) * bytesPerPixel,
            data + static_cast<size_t>(y + row) * pitch + static_cast<size_t>(x) * bytesPerPixel,
            span);
    }
    return true;
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
