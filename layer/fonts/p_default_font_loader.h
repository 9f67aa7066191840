#pragma once

#include "layer/fonts/p_glyph.h"

// The built-in bitmap font "default": one ready bitmap for every size from 6 to 41 pixels and
// each of its 86 characters, turned into glyphs all at once on first use.
class PDefaultFontLoader {
public:
    // Builds the glyphs unless they are built; true when there are glyphs.
    static bool initializeFonts();
    static bool deinitializeFonts();
    static bool isInitialized();
    // Exactly this size and code, or a glyph that is not valid.
    static PGlyph getGlyph(int size, const unsigned int& code);
};
