#pragma once

#include "layer/fonts/p_glyph_stump.h"

// The built-in font: every size from 6 to 41 pixels, each with the same characters, sizes
// ascending. Made by tools/fontgen.
extern const PGlyphStump def_font_data[];
extern const unsigned int def_font_data_count;
