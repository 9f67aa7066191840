#include "BarcodeLib/png/logo_step.h"

#include <lodepng.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "layer/foundation/p_byte_array.h"
#include "layer/graphics/p_image.h"
#include "resampler/image_resizer.h"

namespace BarcodeVelko {

namespace {

constexpr double kMaxPercent = 100.0;
constexpr unsigned kBytesPerPixel = 4;
// No deflate stream inflates to more than 1032 times its length: a header that promises more
// scanline bytes than that from the whole file can only be a lie, and the decoder would set
// the memory aside before finding out.
constexpr unsigned long long kMaxDeflateRatio = 1032;

// The scaled logo's rows into the picture at (x, y), cut to the picture, pixels as they are:
// what the painter's drawImage does pixel by pixel, which took as long as scaling a large logo.
void pasteLogo(PImage& picture, const unsigned char* rows, unsigned width, unsigned height, int x,
               int y) {
    if (picture.bytesPerPixel() != kBytesPerPixel) {
        return;
    }
    const long long left = std::max(0, x);
    const long long top = std::max(0, y);
    const long long right = std::min<long long>(picture.width(), x + static_cast<long long>(width));
    const long long bottom =
        std::min<long long>(picture.height(), y + static_cast<long long>(height));
    if (left >= right || top >= bottom) {
        return;
    }
    unsigned char* target = picture.pixelData();
    const size_t span = static_cast<size_t>(right - left) * kBytesPerPixel;
    for (long long row = top; row < bottom; ++row) {
        std::memcpy(target + row * picture.pitch() + left * kBytesPerPixel,
                    rows + ((row - y) * width + (left - x)) * kBytesPerPixel, span);
    }
}

}  // namespace

bool logoPngAcceptable(const unsigned char* png, size_t size) {
    unsigned width = 0;
    unsigned height = 0;
    LodePNGState state;
    lodepng_state_init(&state);
    const unsigned error = lodepng_inspect(&width, &height, &state, png, size);
    // Scanline bytes with their filter bytes, as the decoder inflates them.
    const unsigned long long raw =
        error ? 0 : lodepng_get_raw_size(width, height, &state.info_png.color) + height;
    lodepng_state_cleanup(&state);
    if (error || width == 0 || height == 0 || width > kMaxLogoSide || height > kMaxLogoSide ||
        static_cast<unsigned long long>(width) * height > kMaxLogoPixels) {
        return false;
    }
    return raw <= kMaxDeflateRatio * size;
}

SymbolArea deliveredArea(const SymbolArea& drawn, unsigned canvasWidth, unsigned canvasHeight,
                         unsigned rotation) {
    const int w = static_cast<int>(canvasWidth);
    const int h = static_cast<int>(canvasHeight);
    const int right = drawn.x + static_cast<int>(drawn.width);
    const int bottom = drawn.y + static_cast<int>(drawn.height);
    switch (rotation) {
        case 90:  // the canvas's left column becomes the picture's top row
            return {h - bottom, drawn.x, drawn.height, drawn.width};
        case 180:
            return {w - right, h - bottom, drawn.width, drawn.height};
        case 270:  // the canvas's left column becomes the picture's bottom row
            return {drawn.y, w - right, drawn.height, drawn.width};
        default:
            return drawn;
    }
}

PImage decodeLogo(const unsigned char* png, size_t size) {
    if (!png || size == 0 || !logoPngAcceptable(png, size)) {
        return PImage();
    }
    unsigned char* rgba = nullptr;
    unsigned width = 0;
    unsigned height = 0;
    const unsigned error = lodepng_decode32(&rgba, &width, &height, png, size);
    // LodePNG's C functions allocate with malloc.
    const std::unique_ptr<unsigned char, decltype(&std::free)> decoded(rgba, &std::free);
    if (error || !rgba || width == 0 || height == 0) {
        return PImage();
    }
    return PImage(width, height,
                  PByteArray(rgba, static_cast<unsigned long>(width) * height * kBytesPerPixel));
}

bool stampLogo(PImage& picture, const PImage& logo, double percent, const SymbolArea& symbol) {
    const unsigned rootWidth = symbol.width;
    const unsigned rootHeight = symbol.height;
    if (!logo.isValid() || !(percent > 0.0)) {
        return false;
    }
    const unsigned logoWidth = logo.width();
    const unsigned logoHeight = logo.height();
    // A logo may be built from any byte array; this one must hold its pixels.
    if (logo.data().size() < static_cast<unsigned long>(logoWidth) * logoHeight * kBytesPerPixel) {
        return false;
    }
    percent = std::min(percent, kMaxPercent);
    // The longer side of the logo against the same side of the symbol; square takes the width.
    const double scale = logoWidth < logoHeight ? rootHeight * percent / 100.0 / logoHeight
                                                : rootWidth * percent / 100.0 / logoWidth;
    const unsigned newWidth = static_cast<unsigned>(logoWidth * scale);
    const unsigned newHeight = static_cast<unsigned>(logoHeight * scale);
    if (newWidth == 0 || newHeight == 0) {
        return false;
    }
    // Its filter bank depends on nothing but the fixed design values: made once, kept for the
    // process (see docs/limits.md), and shared, since a resize changes nothing in it.
    static const avir::CImageResizer resizer;
    const auto resize = [&](unsigned char* target, size_t pitch) {
        resizer.resizeImage(logo.pixelData(), static_cast<int>(logoWidth),
                            static_cast<int>(logoHeight), 0, target, static_cast<int>(newWidth),
                            static_cast<int>(newHeight), static_cast<int>(kBytesPerPixel),
                            static_cast<int>(pitch));
    };
    const int x = symbol.x + (static_cast<int>(rootWidth) - static_cast<int>(newWidth)) / 2;
    const int y = symbol.y + (static_cast<int>(rootHeight) - static_cast<int>(newHeight)) / 2;
    // A logo within the picture, as it nearly always is, is scaled straight into it: a picture's
    // worth of logo costs as much again to set aside and copy.
    if (picture.bytesPerPixel() == kBytesPerPixel && x >= 0 && y >= 0 &&
        static_cast<long long>(x) + newWidth <= picture.width() &&
        static_cast<long long>(y) + newHeight <= picture.height()) {
        resize(picture.pixelData() + static_cast<size_t>(y) * picture.pitch() +
                   static_cast<size_t>(x) * kBytesPerPixel,
               picture.pitch());
        return true;
    }
    PByteArray pixels(static_cast<unsigned char>(0),
                      static_cast<unsigned long>(newWidth) * newHeight * kBytesPerPixel);
    resize(pixels.data(), 0);
    pasteLogo(picture, pixels.constData(), newWidth, newHeight, x, y);
    return true;
}

}  // namespace BarcodeVelko
