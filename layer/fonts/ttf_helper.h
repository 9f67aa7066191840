#pragma once

#include <map>
#include <memory>
#include <vector>

#include "layer/fonts/p_font_info.h"
#include "layer/fonts/p_glyph.h"

struct TTFHelperPrivate;

// Renders characters of a TrueType file with FreeType into hard-edged glyphs. Each helper
// starts a FreeType library of its own, shared by its copies and ended with the last of them.
class TTFHelper {
public:
    TTFHelper();
    ~TTFHelper();
    TTFHelper(const TTFHelper&) = default;
    TTFHelper& operator=(const TTFHelper&) = default;

    bool isStarted() const;
    // A glyph for every code; characters that the font can't draw get the dull glyph. Empty
    // for the built-in font and for a file that FreeType can't open.
    std::map<unsigned int, PGlyph> loadGlyphs(const PFontInfo& font, unsigned int size,
                                              const std::vector<unsigned int>& codes) const;

    // A FreeType bitmap as ink and background: grey levels above 32 are ink, and so are the set
    // bits of a 1-bit bitmap (most significant bit leftmost). pixelMode is FreeType's (1 mono,
    // 2 grey); a negative pitch runs upwards. Other modes give an empty image.
    static PImage bitmapToImage(const unsigned char* buffer, unsigned int width, unsigned int rows,
                                int pitch, int pixelMode);
    // 26.6 fixed point to whole pixels, truncating towards zero.
    static int fromFixed(long value) { return static_cast<int>(value / 64); }
    // How many FreeType libraries the process has started.
    static unsigned int libraryStartCount();

private:
    std::shared_ptr<TTFHelperPrivate> d;
};
