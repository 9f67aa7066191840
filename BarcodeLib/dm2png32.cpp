#include "BarcodeLib/dm2png32.h"

#include <lodepng.h>

#include <cstdlib>
#include <cstring>
#include <memory>

#ifdef VELKO_HAVE_LIBDEFLATE
#include <libdeflate.h>
#endif

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

bool sameRow(const unsigned char* row, unsigned width, unsigned y) {
    const size_t bytes = 4 * static_cast<size_t>(width);
    return y > 0 && std::memcmp(row, row - bytes, bytes) == 0;
}

// The palette of the picture; false when it has more colours than a palette holds. A row like
// the one above it, as most rows of a barcode are, brings no new colour; within a row only a
// change of colour is looked up.
bool findPalette(const unsigned char* pixels, unsigned width, unsigned height, Palette& palette) {
    for (unsigned y = 0; y < height; ++y) {
        const unsigned char* row = pixels + 4 * static_cast<size_t>(width) * y;
        if (sameRow(row, width, y)) {
            continue;
        }
        unsigned previous = 0;
        for (unsigned x = 0; x < width; ++x) {
            unsigned color;
            std::memcpy(&color, row + 4 * x, 4);
            if ((x == 0 || color != previous) && palette.indexOf(color) < 0) {
                return false;
            }
            previous = color;
        }
    }
    return true;
}

// The indices, bitDepth bits each, packed from the high bit as LodePNG takes them: rows run on
// without padding. Where rows end on a byte, a row like the one above is a copy of its bytes.
std::vector<unsigned char> packIndices(const unsigned char* pixels, unsigned width, unsigned height,
                                       Palette& palette) {
    const unsigned depth = palette.bitDepth();
    const size_t rowBits = static_cast<size_t>(width) * depth;
    const bool rowsOnBytes = rowBits % 8 == 0;
    std::vector<unsigned char> packed((rowBits * height + 7) / 8);
    unsigned char* out = packed.data();
    // Two colours, the usual case, need no look-up: the index is whether it is the second.
    const bool twoColours = palette.size == 2;
    unsigned accumulated = 0;
    unsigned bits = 0;
    for (unsigned y = 0; y < height; ++y) {
        const unsigned char* row = pixels + 4 * static_cast<size_t>(width) * y;
        if (rowsOnBytes && sameRow(row, width, y)) {
            std::memcpy(out, out - rowBits / 8, rowBits / 8);
            out += rowBits / 8;
            continue;
        }
        unsigned previous = 0;
        unsigned index = 0;
        for (unsigned x = 0; x < width; ++x) {
            unsigned color;
            std::memcpy(&color, row + 4 * x, 4);
            if (twoColours) {
                index = color == palette.colors[1];
            } else if (x == 0 || color != previous) {
                index = static_cast<unsigned>(palette.indexOf(color));
                previous = color;
            }
            accumulated = (accumulated << depth) | index;
            bits += depth;
            if (bits == 8) {
                *out++ = static_cast<unsigned char>(accumulated);
                accumulated = 0;
                bits = 0;
            }
        }
    }
    if (bits != 0) {
        *out = static_cast<unsigned char>(accumulated << (8 - bits));
    }
    return packed;
}

#ifdef VELKO_HAVE_LIBDEFLATE
// libdeflate at this level gives PNGs no larger than LodePNG's own deflate on our pictures, in
// a fraction of its time. The compressor is kept per thread: making one costs more than a
// barcode's compression.
constexpr int kDeflateLevel = 6;

struct CompressorDeleter {
    void operator()(libdeflate_compressor* compressor) const {
        libdeflate_free_compressor(compressor);
    }
};

unsigned fastZlib(unsigned char** out, size_t* outSize, const unsigned char* in, size_t inSize,
                  const LodePNGCompressSettings*) {
    thread_local std::unique_ptr<libdeflate_compressor, CompressorDeleter> compressor(
        libdeflate_alloc_compressor(kDeflateLevel));
    if (!compressor) {
        return 83;  // LodePNG's code for a failed allocation
    }
    const size_t bound = libdeflate_zlib_compress_bound(compressor.get(), inSize);
    // LodePNG frees what it is given with free().
    auto* buffer = static_cast<unsigned char*>(std::malloc(bound));
    if (!buffer) {
        return 83;
    }
    const size_t written = libdeflate_zlib_compress(compressor.get(), in, inSize, buffer, bound);
    if (written == 0) {
        std::free(buffer);
        return 111;
    }
    *out = buffer;
    *outSize = written;
    return 0;
}

void useFastDeflate(LodePNGCompressSettings& settings) {
    settings.custom_zlib = fastZlib;
}
#else
// Without libdeflate (so on Android unless it is built for it) LodePNG deflates by itself.
void useFastDeflate(LodePNGCompressSettings&) {}
#endif

unsigned encodePalette(std::vector<unsigned char>& png, const Palette& palette,
                       const std::vector<unsigned char>& indices, unsigned width, unsigned height) {
    lodepng::State state;
    state.encoder.auto_convert = 0;
    useFastDeflate(state.encoder.zlibsettings);
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
        if (pixels && findPalette(pixels, width, height, palette)) {
            code = encodePalette(png, palette, packIndices(pixels, width, height, palette), width,
                                 height);
        } else {
            lodepng::State state;
            state.info_raw.colortype = LCT_RGBA;
            state.info_raw.bitdepth = 8;
            useFastDeflate(state.encoder.zlibsettings);
            code = lodepng::encode(png, pixels, width, height, state);
        }
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
