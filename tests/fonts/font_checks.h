#pragma once

#include <string>
#include <vector>

#include "layer/fonts/p_font_info.h"
#include "layer/fonts/p_glyph.h"

// The TrueType font that the test machines have, by name and file.
inline const PFontInfo kDejaVu(L"DejaVuSans-Bold",
                               L"/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");

// A glyph's or bitmap's pixels as rows of '#' for ink and '.' for anything else, each row
// closed by '|'.
inline std::string inkRows(const PImage& image) {
    std::string rows;
    for (int y = 0; y < static_cast<int>(image.height()); ++y) {
        for (int x = 0; x < static_cast<int>(image.width()); ++x) {
            rows += image.getPixel(x, y) == PGlyph::kInk ? '#' : '.';
        }
        rows += '|';
    }
    return rows;
}

// The pixels row by row.
inline std::vector<unsigned> pixelsOf(const PImage& image) {
    std::vector<unsigned> pixels;
    for (int y = 0; y < static_cast<int>(image.height()); ++y) {
        for (int x = 0; x < static_cast<int>(image.width()); ++x) {
            pixels.push_back(image.getPixel(x, y));
        }
    }
    return pixels;
}

// A glyph all ink, w x h, with no metrics but the advance of its width.
inline PGlyph inkedGlyph(unsigned width, unsigned height) {
    PGlyphMetrics metrics;
    metrics.horiAdvance = static_cast<int>(width);
    return PGlyph(PImage(width, height, PColor(PGlyph::kInk, PColor::kNative)), metrics);
}
