#pragma once

#include "layer/fonts/p_glyph.h"

// The built-in bitmap font "default": one ready bitmap for every size from 6 to 41 pixels and
// each of its 86 characters, each turned into a glyph when it is first asked for.
class PDefaultFontLoader {
public:
    // Opens the table for getGlyph; true when it holds glyphs.
    static bool initializeFonts();
    static bool deinitializeFonts();
    static bool isInitialized();
    // Exactly this size and code, or a glyph that is not valid.
    static PGlyph getGlyph(int size, const unsigned int& code);
};
