#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "layer/fonts/p_font_info.h"
#include "layer/fonts/p_glyph.h"
#include "layer/graphics/p_rect.h"

struct TTFHelperPrivate;

// Renders characters of a TrueType file with FreeType into hard-edged glyphs. Each helper
// starts a FreeType library of its own, shared by its copies and ended with the last of them.
class TTFHelper {
public:
    // Part of a bitmap, in its own pixels; it may reach past the bitmap's edges.
    using Window = PRect<long long, long long>;
    // The part wanted of a bitmap of the given width and height.
    using WindowOf = std::function<Window(unsigned int width, unsigned int height)>;

    TTFHelper();
    ~TTFHelper();
    TTFHelper(const TTFHelper&) = default;
    TTFHelper& operator=(const TTFHelper&) = default;

    bool isStarted() const;
    // A glyph for every code; characters that the font can't draw get the dull glyph. Empty
    // for the built-in font and for a file that FreeType can't open.
    std::map<unsigned int, PGlyph> loadGlyphs(const PFontInfo& font, unsigned int size,
                                              const std::vector<unsigned int>& codes) const;
    // The same glyphs without rendering them: pending glyphs with the metrics that rendering
    // gives, and the dull glyph where rendering would give no bitmap.
    std::map<unsigned int, PGlyph> loadMetrics(const PFontInfo& font, unsigned int size,
                                               const std::vector<unsigned int>& codes) const;
    // One glyph cut to a window of its bitmap, the bearings moved so that the part lands where
    // it would in the whole glyph; an empty image when the window misses the bitmap. Not valid
    // when the font can't be opened.
    PGlyph loadGlyphPart(const PFontInfo& font, unsigned int size, unsigned int code,
                         const WindowOf& windowOf) const;

    // A FreeType bitmap as ink and background: grey levels above 32 are ink, and so are the set
    // bits of a 1-bit bitmap (most significant bit leftmost). pixelMode is FreeType's (1 mono,
    // 2 grey); a negative pitch runs upwards. Other modes give an empty image.
    static PImage bitmapToImage(const unsigned char* buffer, unsigned int width, unsigned int rows,
                                int pitch, int pixelMode);
    // The part of such a bitmap inside the window.
    static PImage bitmapToImage(const unsigned char* buffer, unsigned int width, unsigned int rows,
                                int pitch, int pixelMode, const Window& window);
    // 26.6 fixed point to whole pixels, truncating towards zero.
    static int fromFixed(long value) { return static_cast<int>(value / 64); }
    // How many FreeType libraries the process has started.
    static unsigned int libraryStartCount();

private:
    std::shared_ptr<TTFHelperPrivate> d;
};
