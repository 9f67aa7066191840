#include "layer/fonts/p_glyph.h"

const char* const PGlyph::kDullKey = "dull";

PGlyph::PGlyph(const PImage& image, const PGlyphMetrics& metrics)
    : PImage(image), metrics(metrics) {}
