#include "layer/graphics/p_painter.h"

#include <algorithm>

#include "layer/fonts/p_font_draw_helper.h"
#include "layer/graphics/p_abstract_paint_device.h"
#include "layer/graphics/p_image.h"
#include "layer/graphics/p_rect.h"

struct PPainterPrivate {
    PAbstractPaintDevice* device = nullptr;
    PColor pen{0xFF000000, PColor::kNative};
    PColor brush{0xFF000000, PColor::kNative};
    std::unique_ptr<PFontDrawHelper> fontHelper;
};

PPainter::PPainter(PAbstractPaintDevice* device) : d(std::make_unique<PPainterPrivate>()) {
    d->device = device;
}

PPainter::~PPainter() {
    end();
}

bool PPainter::begin(PAbstractPaintDevice* device) {
    if (d->device) {
        return false;
    }
    d->device = device;
    return true;
}

void PPainter::end() {
    d->device = nullptr;
}

void PPainter::setPen(const PColor& color) {
    d->pen = color;
}

void PPainter::setBrush(const PColor& color) {
    d->brush = color;
}

void PPainter::fill(unsigned int value) {
    if (!d->device) {
        return;
    }
    const int w = static_cast<int>(d->device->width());
    const int h = static_cast<int>(d->device->height());
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            d->device->setPixel(x, y, value);
        }
    }
}

void PPainter::drawRect(int x, int y, int w, int h) {
    if (!d->device) {
        return;
    }
    const long long right = std::min<long long>(static_cast<long long>(x) + w, d->device->width());
    const long long bottom =
        std::min<long long>(static_cast<long long>(y) + h, d->device->height());
    const unsigned int value = d->brush.value();
    for (long long py = y; py < bottom; ++py) {
        for (long long px = x; px < right; ++px) {
            d->device->setPixel(static_cast<int>(px), static_cast<int>(py), value);
        }
    }
}

void PPainter::drawLine(int x1, int y1, int x2, int y2, int) {
    if (!d->device) {
        return;
    }
    if (x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    if (x1 == x2) {
        return;
    }
    const double slope = (static_cast<double>(y2) - y1) / (static_cast<double>(x2) - x1);
    const double intercept = y1 - slope * x1;
    const unsigned int value = d->pen.value();
    for (int x = x1; x < x2; ++x) {
        d->device->setPixel(x, static_cast<int>(slope * x + intercept), value);
    }
}

void PPainter::drawImage(int x, int y, int w, int h, const PImage& image, int flags) {
    if (!d->device) {
        return;
    }
    using Rect = PRect<int, unsigned>;
    const Rect deviceRect(0, 0, d->device->width(), d->device->height());
    const Rect imageRect(x, y, image.width(), image.height());
    Rect clip = deviceRect;
    if (flags & kClipToSize) {
        clip = clip.intersection(Rect(x, y, static_cast<unsigned>(std::max(w, 0)),
                                      static_cast<unsigned>(std::max(h, 0))));
    }
    clip = clip.intersection(imageRect);
    // Within the device the image's rows go over whole; elsewhere pixel by pixel.
    const unsigned char* pixels = image.pixelData();
    if (x >= 0 && y >= 0 && pixels && image.bytesPerPixel() == 4) {
        d->device->putRect(x, y, pixels, image.pitch(), clip.width, clip.height);
        return;
    }
    for (unsigned dy = 0; dy < clip.height; ++dy) {
        for (unsigned dx = 0; dx < clip.width; ++dx) {
            d->device->setPixel(x + static_cast<int>(dx), y + static_cast<int>(dy),
                                image.getPixel(static_cast<int>(dx), static_cast<int>(dy)));
        }
    }
}

void PPainter::drawText(int x, int y, int w, int h, const std::wstring& text, const PFontInfo& font,
                        unsigned int size, const PTextOptions& options) {
    if (!d->fontHelper) {
        d->fontHelper = std::make_unique<PFontDrawHelper>();
    }
    PFontDrawHelper& helper = *d->fontHelper;
    helper.setPaintDevice(d->device);
    helper.setBackgroundBrush(0x00FFFFFF);
    helper.setFillBackground(true);
    helper.setPen(d->pen.value());
    helper.setFont(font);
    helper.setFontSize(size);
    int penX = x;
    int penY = y;
    helper.draw(text, penX, penY, static_cast<unsigned int>(w), static_cast<unsigned int>(h),
                options);
}
