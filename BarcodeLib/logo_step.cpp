#include "BarcodeLib/logo_step.h"

#include <lodepng.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "layer/foundation/p_byte_array.h"
#include "layer/graphics/p_image.h"
#include "layer/graphics/p_painter.h"
#include "resampler/image_resizer.h"

namespace BarcodeVelko {

namespace {

constexpr double kMaxPercent = 100.0;
constexpr unsigned kBytesPerPixel = 4;
// No deflate stream inflates to more than 1032 times its length: a header that promises more
// scanline bytes than that from the whole file can only be a lie, and the decoder would set
// the memory aside before finding out.
constexpr unsigned long long kMaxDeflateRatio = 1032;

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

void stampLogo(PImage& picture, const PImage& logo, double percent, const SymbolArea& symbol) {
    const unsigned rootWidth = symbol.width;
    const unsigned rootHeight = symbol.height;
    if (!logo.isValid() || !(percent > 0.0)) {
        return;
    }
    const unsigned logoWidth = logo.width();
    const unsigned logoHeight = logo.height();
    // A logo may be built from any byte array; this one must hold its pixels.
    if (logo.data().size() < static_cast<unsigned long>(logoWidth) * logoHeight * kBytesPerPixel) {
        return;
    }
    percent = std::min(percent, kMaxPercent);
    // The longer side of the logo against the same side of the symbol; square takes the width.
    const double scale = logoWidth < logoHeight ? rootHeight * percent / 100.0 / logoHeight
                                                : rootWidth * percent / 100.0 / logoWidth;
    const unsigned newWidth = static_cast<unsigned>(logoWidth * scale);
    const unsigned newHeight = static_cast<unsigned>(logoHeight * scale);
    if (newWidth == 0 || newHeight == 0) {
        return;
    }
    PByteArray pixels(static_cast<unsigned char>(0),
                      static_cast<unsigned long>(newWidth) * newHeight * kBytesPerPixel);
    // Its filter bank depends on nothing but the fixed design values: made once, kept for the
    // process (see docs/limits.md), and shared, since a resize changes nothing in it.
    static const avir::CImageResizer resizer;
    resizer.resizeImage(logo.pixelData(), static_cast<int>(logoWidth), static_cast<int>(logoHeight),
                        0, pixels.data(), static_cast<int>(newWidth), static_cast<int>(newHeight),
                        static_cast<int>(kBytesPerPixel));
    const PImage scaled(newWidth, newHeight, pixels);
    PPainter painter;
    painter.begin(&picture);
    painter.drawImage(symbol.x + (static_cast<int>(rootWidth) - static_cast<int>(newWidth)) / 2,
                      symbol.y + (static_cast<int>(rootHeight) - static_cast<int>(newHeight)) / 2,
                      static_cast<int>(newWidth), static_cast<int>(newHeight), scaled, 0);
}

}  // namespace BarcodeVelko
