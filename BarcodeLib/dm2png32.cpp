#include "BarcodeLib/dm2png32.h"

#include <lodepng.h>

namespace BarcodeVelko {

namespace {

// LodePNG's own code for an input buffer that isn't there.
constexpr unsigned kNoInput = 48;

}  // namespace

std::vector<unsigned char> DM2PNG32(const unsigned char* pixels, unsigned int width,
                                    unsigned int height, unsigned int /*bytesPerPixel*/,
                                    int* error) {
    std::vector<unsigned char> png;
    unsigned code = kNoInput;
    if (pixels || width == 0 || height == 0) {
        code = lodepng::encode(png, pixels, width, height, LCT_RGBA, 8);
    }
    if (code != 0) {
        png.clear();
    }
    if (error) {
        *error = static_cast<int>(code);
    }
    return png;
}

}  // namespace BarcodeVelko
