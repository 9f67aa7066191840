#include "BarcodeLib/tree/barcode_canvas_memory_impl.h"
#include "BarcodeLib/tree/canvas_rotation.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "BarcodeLib/tree/row_tracking_device.h"
#include "layer/fonts/p_font_draw_helper.h"
#include "layer/fonts/p_font_info.h"
#include "layer/foundation/p_error.h"
#include "layer/foundation/utf8.h"
#include "layer/graphics/p_abstract_paint_device_wrapper.h"
#include "layer/graphics/p_paint_device.h"
#include "layer/graphics/p_paint_device_alias.h"

namespace BarcodeVelko {

namespace {

constexpr unsigned kTransparentBackground = 0x00FFFFFF;
constexpr unsigned kOpaqueBackground = 0xFFFFFFFF;

}  // namespace

// Pixels of an earlier picture of this size, painted over rather than allocated again; else a
// new picture.
PImage canvasPicture(unsigned width, unsigned height, const PColor& background, PByteArray* spare) {
    PByteArray pixels;
    if (spare) {
        std::swap(pixels, *spare);
    }
    if (width > PImage::kMaxSide || height > PImage::kMaxSide ||
        pixels.size() != 4ULL * width * height) {
        return PImage(width, height, background);
    }
    PImage image(width, height, pixels);
    pixels = PByteArray();
    image.fill(background.value());
    return image;
}

struct BarcodeCanvasMemoryImplPrivate {
    BarcodeCanvasMemoryImplPrivate(unsigned width, unsigned height, unsigned background,
                                   PByteArray* spare)
        : image(canvasPicture(width, height, PColor(background, PColor::kNative), spare)),
          backgroundColor(background, PColor::kNative),
          baseDevice(std::make_unique<RowTrackingDevice>(&image)),
          currentDevice(baseDevice.get()) {}

    // First, so that the devices, which point into it, go before it.
    PImage image;
    unsigned x = 0;
    unsigned y = 0;
    PColor textColor{0xFF000000, PColor::kNative};
    PColor barColor{0xFF000000, PColor::kNative};
    PColor backgroundColor;
    int rotation = 0;
    // While a band is drawn: its height, the top of its first line, and whether its rows were
    // untouched before.
    unsigned bandHeight = 0;
    unsigned bandTop = 0;
    bool bandOnUntouchedRows = false;
    std::unique_ptr<RowTrackingDevice> baseDevice;
    // The base device, or the alias below.
    PAbstractPaintDeviceWrapper* currentDevice;
    std::unique_ptr<PPaintDeviceAlias> rotatedDevice;
    // Made on first use, kept for the canvas's life.
    std::unique_ptr<PFontDrawHelper> fontHelper;
    PError lastError;

    PFontDrawHelper& textHelper() {
        if (!fontHelper) {
            fontHelper = std::make_unique<PFontDrawHelper>();
        }
        return *fontHelper;
    }
};

BarcodeCanvasMemoryImpl::BarcodeCanvasMemoryImpl(unsigned width, unsigned height,
                                                 unsigned background, PByteArray* spare)
    : d(std::make_unique<BarcodeCanvasMemoryImplPrivate>(width, height, background, spare)) {}

BarcodeCanvasMemoryImpl::BarcodeCanvasMemoryImpl(BarcodeCanvasMemoryImpl&& other) noexcept =
    default;

BarcodeCanvasMemoryImpl::~BarcodeCanvasMemoryImpl() = default;

unsigned BarcodeCanvasMemoryImpl::getWidthImp() {
    return d->image.width();
}

unsigned BarcodeCanvasMemoryImpl::getHeightImp() {
    return d->image.height();
}

void BarcodeCanvasMemoryImpl::getXYImp(unsigned* x, unsigned* y) {
    if (x && y) {
        *x = d->x;
        *y = d->y;
    }
}

void BarcodeCanvasMemoryImpl::setXYImp(unsigned x, unsigned y) {
    if (d->image.isValid()) {
        d->x = x;
        d->y = y;
    }
}

void BarcodeCanvasMemoryImpl::drawSpaceImp(unsigned, unsigned, bool) {}

void BarcodeCanvasMemoryImpl::drawBarImp(unsigned width, unsigned height, bool) {
    if (!d->image.isValid()) {
        return;
    }
    PAbstractPaintDeviceWrapper* device = d->currentDevice;
    // Wide sums: a pen far out must not wrap around into the canvas.
    const auto right =
        static_cast<unsigned>(std::min<unsigned long long>(device->width(), 0ULL + d->x + width));
    const auto bottom =
        static_cast<unsigned>(std::min<unsigned long long>(device->height(), 0ULL + d->y + height));
    if (right > d->x && bottom > d->y) {
        const int x = static_cast<int>(d->x);
        const unsigned width = right - d->x;
        const unsigned color = d->barColor.value();
        if (d->bandHeight == 0) {
            device->fillRect(x, static_cast<int>(d->y), width, bottom - d->y, color);
        } else {
            // In a band only the first line, which the band's end copies down; below the band,
            // what a taller run has of its own.
            device->fillRect(x, static_cast<int>(d->y), width, 1, color);
            const unsigned long long bandBottom = 0ULL + d->y + d->bandHeight;
            if (bottom > bandBottom) {
                device->fillRect(x, static_cast<int>(bandBottom), width,
                                 bottom - static_cast<unsigned>(bandBottom), color);
            }
        }
    }
    d->x = right;
    d->y = bottom;
}

bool BarcodeCanvasMemoryImpl::repeatBandImp(unsigned width, unsigned height) {
    if (d->y < height || d->x > INT_MAX || d->y > INT_MAX) {
        return false;
    }
    const int x = static_cast<int>(d->x);
    const int y = static_cast<int>(d->y);
    const bool tracked = !isTurned(static_cast<unsigned>(d->rotation)) &&
                         d->y < d->image.height() && height <= d->image.height() - d->y &&
                         d->baseDevice->untouched(pictureTop(d->y, height), height);
    if (!d->currentDevice->copyRect(x, y - static_cast<int>(height), width, height, x, y)) {
        return false;
    }
    if (tracked) {
        // A picture turned by 180 degrees has its columns the other way round too.
        const unsigned left = d->rotation == 180 ? d->image.width() - d->x - width : d->x;
        d->baseDevice->markCopy(pictureTop(d->y - height, height), pictureTop(d->y, height), height,
                                left, width);
    }
    return true;
}

// A line of the turned picture is a column of pixels in memory, which copies no faster than it
// fills.
bool BarcodeCanvasMemoryImpl::beginBandImp(unsigned height) {
    if (!d->image.isValid() || d->rotation == 90 || d->rotation == 270 || d->y > INT_MAX) {
        return false;
    }
    d->bandHeight = height;
    d->bandTop = d->y;
    const unsigned lines =
        d->y < d->image.height() ? std::min(height, d->image.height() - d->y) : 0;
    d->bandOnUntouchedRows = lines > 0 && d->baseDevice->untouched(pictureTop(d->y, lines), lines);
    return true;
}

// The top picture row of lines rows of the canvas from top on, as the rotation turns them.
unsigned BarcodeCanvasMemoryImpl::pictureTop(unsigned top, unsigned lines) const {
    return d->rotation == 180 ? d->image.height() - top - lines : top;
}

void BarcodeCanvasMemoryImpl::endBandImp(unsigned width) {
    PAbstractPaintDeviceWrapper* device = d->currentDevice;
    const unsigned top = d->bandTop;
    const unsigned height = d->bandHeight;
    d->bandHeight = 0;
    const unsigned left = d->x;
    if (left >= device->width() || top >= device->height()) {
        return;
    }
    const unsigned span = std::min(width, device->width() - left);
    const unsigned lines = std::min(height, device->height() - top);
    // The lines drawn so far double with each copy.
    for (unsigned done = 1; done < lines;) {
        const unsigned copied = std::min(done, lines - done);
        device->copyRect(static_cast<int>(left), static_cast<int>(top), span, copied,
                         static_cast<int>(left), static_cast<int>(top + done));
        done += copied;
    }
    if (d->bandOnUntouchedRows) {
        d->baseDevice->markBand(pictureTop(top, lines), lines);
    }
}

void BarcodeCanvasMemoryImpl::drawTextImp(unsigned width, unsigned height, const wchar_t* text) {
    PFontDrawHelper& helper = d->textHelper();
    const unsigned size = helper.fontSize();
    if (size == 0) {
        return;
    }
    helper.setPaintDevice(d->currentDevice);
    PTextOptions options;
    options.justify = true;
    // Each byte of the UTF-8 form is one character code of the glyph lookup.
    const std::string narrow = text ? wstr2str(text) : std::string();
    helper.setFillBackground(true);
    helper.setBackgroundBrush(d->backgroundColor.value());
    helper.setPen(d->textColor.value());
    // Text that would run off the bottom moves up rather than being lost.
    unsigned top = d->y;
    if (top + 1 + size > d->image.height()) {
        top = d->image.height() - 1 - size;
    }
    int x = static_cast<int>(d->x);
    int y = static_cast<int>(top);
    helper.draw(narrow, x, y, width, height, options);
}

void BarcodeCanvasMemoryImpl::setBarColorImp(unsigned color) {
    d->barColor.setValue(color, PColor::kNative);
}

void BarcodeCanvasMemoryImpl::setTextColorImp(unsigned color) {
    d->textColor.setValue(color, PColor::kNative);
}

void BarcodeCanvasMemoryImpl::fillCanvasImp(unsigned color, bool) {
    d->baseDevice->fill(color);
}

unsigned BarcodeCanvasMemoryImpl::getFontHeight() {
    return 0;
}

bool BarcodeCanvasMemoryImpl::IsTransparentBackground() {
    return d->backgroundColor.value() == kTransparentBackground;
}

void BarcodeCanvasMemoryImpl::SetTransparentBackground(bool transparent) {
    d->backgroundColor.setValue(transparent ? kTransparentBackground : kOpaqueBackground,
                                PColor::kNative);
}

void BarcodeCanvasMemoryImpl::HomemadeHinting(long, long, long, long) {}

void BarcodeCanvasMemoryImpl::RenderImage() {}

void BarcodeCanvasMemoryImpl::setCanvasRotation(int rotation) {
    const long long turns = std::llabs(static_cast<long long>(rotation)) / 360 + 1;
    const int angle = static_cast<int>((rotation + 360 * turns) % 360);
    if (angle == d->rotation) {
        return;
    }
    d->rotation = angle;
    d->currentDevice = d->baseDevice.get();
    d->rotatedDevice.reset();

    const int w = static_cast<int>(d->baseDevice->width());
    const int h = static_cast<int>(d->baseDevice->height());
    if (angle == 180) {
        d->rotatedDevice = std::make_unique<PPaintDeviceAlias>(d->baseDevice.get(), w, h, false);
        d->rotatedDevice->setTransfotm(Transform<int>(-1, 0, 0, 0, -1, 0, w - 1, h - 1, 1));
    } else if (isTurned(static_cast<unsigned>(angle))) {
        // The same buffer, read with rows of the other length, is the turned picture.
        const unsigned bytesPerPixel = d->baseDevice->bytesPerPixel();
        auto turned = std::make_unique<PPaintDevice>(d->image.pixelData(), h, w, bytesPerPixel,
                                                     h * bytesPerPixel);
        d->rotatedDevice = std::make_unique<PPaintDeviceAlias>(turned.get(), w, h, true);
        turned.release();
        d->rotatedDevice->setTransfotm(angle == 90
                                           ? Transform<int>(0, 1, 0, -1, 0, 0, h - 1, 0, 1)
                                           : Transform<int>(0, -1, 0, 1, 0, 0, 0, w - 1, 1));
    } else {
        return;
    }
    d->currentDevice = d->rotatedDevice.get();
}

void BarcodeCanvasMemoryImpl::lendTextHelper(std::unique_ptr<PFontDrawHelper> helper) {
    if (helper) {
        d->fontHelper = std::move(helper);
    }
}

std::unique_ptr<PFontDrawHelper> BarcodeCanvasMemoryImpl::returnTextHelper() {
    return std::move(d->fontHelper);
}

void BarcodeCanvasMemoryImpl::setFont(const PFontInfo& font) {
    PFontDrawHelper& helper = d->textHelper();
    if (!(helper.font() == font)) {
        helper.setFont(font);
    }
}

void BarcodeCanvasMemoryImpl::setFontSize(unsigned size) {
    PFontDrawHelper& helper = d->textHelper();
    if (helper.fontSize() != size) {
        helper.setFontSize(size);
    }
}

PImage BarcodeCanvasMemoryImpl::getImage() const {
    PAbstractPaintDevice* device = d->currentDevice->device();
    return PImage(device->width(), device->height(), d->image.data());
}

std::vector<unsigned char> BarcodeCanvasMemoryImpl::repeatedRows() const {
    // A turned picture is drawn on its pixels directly, which the base device doesn't see.
    if (isTurned(static_cast<unsigned>(d->rotation))) {
        return {};
    }
    return d->baseDevice->repeatedRows();
}

PImage BarcodeCanvasMemoryImpl::getRotatedImage(int) const {
    return PImage();
}

PByteArray BarcodeCanvasMemoryImpl::data() const {
    return d->image.data();
}

PError BarcodeCanvasMemoryImpl::lastError() const {
    return d->lastError;
}

}  // namespace BarcodeVelko
