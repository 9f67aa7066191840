#pragma once

#include <vector>

#include "layer/fonts/p_font_info.h"
#include "layer/fonts/p_glyph.h"

// The process-wide store of glyphs by font, size in pixels and character code. A glyph is made
// once, from the built-in font or from FreeType, and then only copied out.
class PFontGlyphsCache {
public:
    static bool initialize() { return true; }
    // The glyphs stay for the next object of the process.
    static bool deinitialize() { return true; }
    static bool canLoadGlyphs() { return true; }
    static bool canLoadGlyphs(const PFontInfo&, unsigned int, const std::vector<unsigned int>&) {
        return true;
    }

    // Distinct entries stored since the last clear.
    static unsigned int size();
    static bool empty();
    // Forgets the glyphs; the dull glyphs stay.
    static void clear();

    // Not valid when there is no such entry; looking never creates one.
    static PGlyph getGlyph(const PFontInfo& font, unsigned int size, unsigned int code);
    static void storeGlyph(const PFontInfo& font, unsigned int size, unsigned int code,
                           const PGlyph& glyph);
    // A blank cell half as wide as it is high that stands in for characters without a shape.
    // The first call for a font and size fixes its ascender and descender.
    static PGlyph getDull(const PFontInfo& font, unsigned int size, int ascender, int descender);
    // Fetches from the font's source whatever of these codes isn't stored yet.
    static void loadGlyphs(const PFontInfo& font, unsigned int size,
                           const std::vector<unsigned int>& codes);
};
