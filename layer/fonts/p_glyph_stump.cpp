#include "layer/fonts/p_glyph_stump.h"

#include <algorithm>

#include "layer/fonts/p_glyph.h"

namespace {

int rowBytes(int width) {
    return (width + 7) / 8;
}

}  // namespace

PGlyph stump2Glyph(const PGlyphStump& stump) {
    PGlyphMetrics metrics;
    metrics.width = stump.width;
    metrics.height = stump.height;
    metrics.horiBearingX = stump.horiBearingX;
    metrics.horiBearingY = stump.horiBearingY;
    metrics.horiAdvance = stump.horiAdvance;
    metrics.vertBearingX = stump.vertBearingX;
    metrics.vertBearingY = stump.vertBearingY;
    metrics.vertAdvance = stump.vertAdvance;
    metrics.ascender = stump.ascender;
    metrics.descender = stump.descender;
    const unsigned width = static_cast<unsigned>(std::max(stump.width, 0));
    const unsigned height = static_cast<unsigned>(std::max(stump.height, 0));
    if (width == 0 || height == 0) {
        return PGlyph(PImage(width, height, PColor(PGlyph::kBackground, PColor::kNative)), metrics);
    }
    // The pixels are written here in one pass rather than filled and then set one by one
    // through the device.
    // Background 0x00FFFFFF and ink 0xFF000000, low byte first.
    PByteArray pixels(static_cast<unsigned char>(0xFF), 4ul * width * height);
    unsigned char* pixel = pixels.data();
    const int stride = rowBytes(stump.width);
    const int usedBytes = std::clamp(stump.dataSize, 0, PGlyphStump::kBitmapCapacity);
    for (unsigned y = 0; y < height; ++y) {
        const bool rowStored = static_cast<int>(y + 1) * stride <= usedBytes;
        const std::uint8_t* bits = rowStored ? stump.data + y * stride : nullptr;
        for (unsigned x = 0; x < width; ++x, pixel += 4) {
            if (rowStored && (bits[x / 8] & (0x80 >> (x % 8)))) {
                pixel[0] = pixel[1] = pixel[2] = 0;
            } else {
                pixel[3] = 0;
            }
        }
    }
    return PGlyph(PImage(width, height, pixels), metrics);
}

void glyph2Stump(int font, int size, int code, const PGlyph& glyph, PGlyphStump& stump) {
    stump = PGlyphStump();
    stump.font = font;
    stump.size = size;
    stump.code = static_cast<std::uint32_t>(code);
    const PGlyphMetrics& m = glyph.metrics;
    stump.ascender = m.ascender;
    stump.descender = m.descender;
    stump.height = m.height;
    stump.width = m.width;
    stump.horiAdvance = m.horiAdvance;
    stump.horiBearingX = m.horiBearingX;
    stump.horiBearingY = m.horiBearingY;
    stump.vertAdvance = m.vertAdvance;
    stump.vertBearingX = m.vertBearingX;
    stump.vertBearingY = m.vertBearingY;

    const int width = static_cast<int>(glyph.width());
    const int height = static_cast<int>(glyph.height());
    const int stride = rowBytes(width);
    if (stride * height > PGlyphStump::kBitmapCapacity) {
        throw 1;
    }
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (glyph.getPixel(x, y) == PGlyph::kInk) {
                stump.data[y * stride + x / 8] |= static_cast<std::uint8_t>(0x80 >> (x % 8));
            }
        }
    }
    stump.dataSize = stride * height;
}

std::string serializeStump(const PGlyphStump& stump) {
    const std::int64_t fields[] = {stump.font,         stump.size,        stump.code,
                                   stump.ascender,     stump.descender,   stump.height,
                                   stump.width,        stump.horiAdvance, stump.horiBearingX,
                                   stump.horiBearingY, stump.vertAdvance, stump.vertBearingX,
                                   stump.vertBearingY, stump.dataSize};
    std::string text = "{";
    for (std::int64_t field : fields) {
        text += std::to_string(field);
        text += ',';
    }
    text += '{';
    const int used = std::clamp(stump.dataSize, 0, PGlyphStump::kBitmapCapacity);
    for (int i = 0; i < used; ++i) {
        if (i > 0) {
            text += ',';
        }
        text += "0x";
        text += char2hex(static_cast<char>(stump.data[i]));
    }
    text += "},{}}";
    return text;
}

std::string char2hex(char byte) {
    static const char kDigits[] = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(byte);
    return std::string{kDigits[value >> 4], kDigits[value & 0x0F]};
}
