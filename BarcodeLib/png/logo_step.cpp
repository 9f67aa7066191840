#include "BarcodeLib/png/logo_step.h"

#include <lodepng.h>

#include <algorithm>

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

void stampLogo(PImage& picture, const PImage& logo, double percent, int x, int y,
               unsigned rootWidth, unsigned rootHeight) {
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
    const avir::CImageResizer resizer;
    resizer.resizeImage(logo.pixelData(), static_cast<int>(logoWidth), static_cast<int>(logoHeight),
                        0, pixels.data(), static_cast<int>(newWidth), static_cast<int>(newHeight),
                        static_cast<int>(kBytesPerPixel));
    const PImage scaled(newWidth, newHeight, pixels);
    PPainter painter;
    painter.begin(&picture);
    painter.drawImage(x + (static_cast<int>(rootWidth) - static_cast<int>(newWidth)) / 2,
                      y + (static_cast<int>(rootHeight) - static_cast<int>(newHeight)) / 2,
                      static_cast<int>(newWidth), static_cast<int>(newHeight), scaled, 0);
}

}  // namespace BarcodeVelko
