#pragma once

#include "layer/fonts/key_value.h"
#include "layer/graphics/p_image.h"

// Whole-pixel metrics of one glyph at one size.
struct PGlyphMetrics {
    int width = 0;
    int height = 0;
    // From the pen to the bitmap's left edge, and from the baseline up to its top edge.
    int horiBearingX = 0;
    int horiBearingY = 0;
    int horiAdvance = 0;
    // Carried along for completeness; nothing lays text out vertically.
    int vertBearingX = 0;
    int vertBearingY = 0;
    int vertAdvance = 0;
    // Of the font at this size: top of the line to the baseline, and below it (negative).
    int ascender = 0;
    int descender = 0;
};

// A character's bitmap, ink 0xFF000000 on background 0x00FFFFFF, with its metrics. Copies share
// the pixels and the properties until one of them changes.
class PGlyph : public PImage {
public:
    static constexpr unsigned kInk = 0xFF000000;
    static constexpr unsigned kBackground = 0x00FFFFFF;
    // The property that marks a placeholder without a shape of its own.
    static const char* const kDullKey;

    PGlyph() = default;
    PGlyph(const PImage& image, const PGlyphMetrics& metrics);

    bool isDull() const { return properties.hasKey(kDullKey); }

    PGlyphMetrics metrics;
    KeyValue properties;
    // Metrics only, for laying out a line: the image is made when the character is drawn.
    bool pending = false;
};
