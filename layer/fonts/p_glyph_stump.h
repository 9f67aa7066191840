#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

class PGlyph;

// Nothing but the closing "{}" of a record's text form.
struct PGlyphStumpTail {};

// One glyph of the built-in font as a 256-byte record: metrics, then a 1-bit bitmap, rows from
// the top, each row starting on a new byte, the most significant bit leftmost.
struct PGlyphStump {
    static constexpr int kBitmapCapacity = 200;

    constexpr PGlyphStump() = default;
    constexpr PGlyphStump(std::int32_t font, std::int32_t size, std::uint32_t code,
                          std::int32_t ascender, std::int32_t descender, std::int32_t height,
                          std::int32_t width, std::int32_t horiAdvance, std::int32_t horiBearingX,
                          std::int32_t horiBearingY, std::int32_t vertAdvance,
                          std::int32_t vertBearingX, std::int32_t vertBearingY,
                          std::int32_t dataSize, std::initializer_list<std::uint8_t> bytes,
                          PGlyphStumpTail = {})
        : font(font),
          size(size),
          code(code),
          ascender(ascender),
          descender(descender),
          height(height),
          width(width),
          horiAdvance(horiAdvance),
          horiBearingX(horiBearingX),
          horiBearingY(horiBearingY),
          vertAdvance(vertAdvance),
          vertBearingX(vertBearingX),
          vertBearingY(vertBearingY),
          dataSize(dataSize) {
        int i = 0;
        for (std::uint8_t byte : bytes) {
            if (i < kBitmapCapacity) {
                data[i++] = byte;
            }
        }
    }

    std::int32_t font = 0;
    std::int32_t size = 0;
    std::uint32_t code = 0;
    std::int32_t ascender = 0;
    std::int32_t descender = 0;
    std::int32_t height = 0;
    std::int32_t width = 0;
    std::int32_t horiAdvance = 0;
    std::int32_t horiBearingX = 0;
    std::int32_t horiBearingY = 0;
    std::int32_t vertAdvance = 0;
    std::int32_t vertBearingX = 0;
    std::int32_t vertBearingY = 0;
    std::int32_t dataSize = 0;
    std::uint8_t data[kBitmapCapacity] = {};
};

static_assert(sizeof(PGlyphStump) == 256, "a record of the built-in font is 256 bytes");

PGlyph stump2Glyph(const PGlyphStump& stump);
// Throws the int 1 for a bitmap that doesn't fit the record.
void glyph2Stump(int font, int size, int code, const PGlyph& glyph, PGlyphStump& stump);
// The record as C++ source: {fourteen integers,{bitmap bytes in use},{}} without blanks.
std::string serializeStump(const PGlyphStump& stump);
// Two lower-case hexadecimal digits, high nibble first.
std::string char2hex(char byte);
