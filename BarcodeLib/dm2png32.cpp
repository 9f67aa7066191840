#include "BarcodeLib/dm2png32.h"

#include <lodepng.h>

#include <cstring>

namespace BarcodeVelko {

namespace {

// LodePNG's own code for an input buffer that isn't there.
constexpr unsigned kNoInput = 48;
constexpr unsigned kMaxPaletteSize = 256;

// The colours of a picture, in order of appearance, as long as there are few enough for a
// palette.
struct Palette {
    unsigned colors[kMaxPaletteSize];
    unsigned size = 0;

    // The index of the colour, added if new; -1 when the palette is full.
    int indexOf(unsigned color) {
        for (unsigned i = 0; i < size; ++i) {
            if (colors[i] == color) {
                return static_cast<int>(i);
            }
        }
        if (size == kMaxPaletteSize) {
            return -1;
        }
        colors[size] = color;
        return static_cast<int>(size++);
    }

    unsigned bitDepth() const { return size <= 2 ? 1 : size <= 4 ? 2 : size <= 16 ? 4 : 8; }
};

// A barcode has a handful of colours: as palette indices of a few bits, the PNG step has a
// fraction of the bytes to filter and compress. False for a picture with too many colours.
bool toIndices(const unsigned char* pixels, unsigned width, unsigned height, Palette& palette,
               std::vector<unsigned char>& indices) {
    const size_t count = static_cast<size_t>(width) * height;
    std::vector<unsigned char> plain(count);
    unsigned previous = 0;
    int previousIndex = -1;
    for (size_t i = 0; i < count; ++i) {
        unsigned color;
        std::memcpy(&color, pixels + 4 * i, 4);
        if (previousIndex < 0 || color != previous) {
            previousIndex = palette.indexOf(color);
            if (previousIndex < 0) {
                return false;
            }
            previous = color;
        }
        plain[i] = static_cast<unsigned char>(previousIndex);
    }
    // LodePNG takes indices below 8 bits packed from the high bit, rows running on unpadded.
    const unsigned depth = palette.bitDepth();
    if (depth == 8) {
        indices.swap(plain);
        return true;
    }
    const unsigned perByte = 8 / depth;
    indices.assign((count + perByte - 1) / perByte, 0);
    for (size_t i = 0; i < count; ++i) {
        const unsigned shift = 8 - depth * (1 + static_cast<unsigned>(i % perByte));
        indices[i / perByte] |= static_cast<unsigned char>(plain[i] << shift);
    }
    return true;
}

unsigned encodePalette(std::vector<unsigned char>& png, const Palette& palette,
                       const std::vector<unsigned char>& indices, unsigned width, unsigned height) {
    lodepng::State state;
    state.encoder.auto_convert = 0;
    for (LodePNGColorMode* mode : {&state.info_raw, &state.info_png.color}) {
        mode->colortype = LCT_PALETTE;
        mode->bitdepth = palette.bitDepth();
        for (unsigned i = 0; i < palette.size; ++i) {
            unsigned char rgba[4];
            std::memcpy(rgba, &palette.colors[i], 4);
            lodepng_palette_add(mode, rgba[0], rgba[1], rgba[2], rgba[3]);
        }
    }
    return lodepng::encode(png, indices, width, height, state);
}

}  // namespace

std::vector<unsigned char> DM2PNG32(const unsigned char* pixels, unsigned int width,
                                    unsigned int height, unsigned int /*bytesPerPixel*/,
                                    int* error) {
    std::vector<unsigned char> png;
    unsigned code = kNoInput;
    if (pixels || width == 0 || height == 0) {
        Palette palette;
        std::vector<unsigned char> indices;
        code = pixels && toIndices(pixels, width, height, palette, indices)
                   ? encodePalette(png, palette, indices, width, height)
                   : lodepng::encode(png, pixels, width, height, LCT_RGBA, 8);
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
