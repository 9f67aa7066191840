#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "layer/fonts/p_font_info.h"
#include "layer/fonts/p_glyph.h"
#include "layer/fonts/ttf_helper.h"

// The process-wide store of glyphs by font, size in pixels and character code. A glyph is made
// once, from the built-in font or from FreeType, and then only copied out while it stays in
// the store: the store keeps to a budget of bytes and lets the glyphs used longest ago go.
class PFontGlyphsCache {
public:
    // Room for the text of many labels: a glyph of 12 pixels takes about 600 bytes with its
    // bookkeeping, one of 100 pixels about 25 KB.
    static constexpr std::size_t kByteBudget = 16u << 20;
    // A glyph larger than this is handed out but not kept: it would push out many small ones
    // for the sake of a size that a label hardly ever repeats.
    static constexpr std::size_t kLargestKept = kByteBudget / 4;
    // Up to this size every glyph of a text is made whole at once. Above it a glyph that isn't
    // stored comes as metrics first and gets its image only when it is drawn, since a line of
    // large glyphs seldom fits the picture whole.
    static constexpr unsigned int kWholeGlyphSize = 64;

    static bool initialize() { return true; }
    // The glyphs stay for the next object of the process.
    static bool deinitialize() { return true; }
    static bool canLoadGlyphs() { return true; }
    static bool canLoadGlyphs(const PFontInfo&, unsigned int, const std::vector<unsigned int>&) {
        return true;
    }

    // Glyph entries held now, dull glyphs aside.
    static unsigned int size();
    static bool empty();
    // Bytes held now, dull glyphs included: pixels and bookkeeping.
    static std::size_t bytes();
    // Forgets the glyphs; the dull glyphs stay.
    static void clear();

    // Not valid when there is no such entry; looking never creates one.
    static PGlyph getGlyph(const PFontInfo& font, unsigned int size, unsigned int code);
    static void storeGlyph(const PFontInfo& font, unsigned int size, unsigned int code,
                           const PGlyph& glyph);
    // A blank cell half as wide as it is high that stands in for characters without a shape.
    // The first call for a font and size fixes its ascender and descender for the life of the
    // process.
    static PGlyph getDull(const PFontInfo& font, unsigned int size, int ascender, int descender);

    // The glyph of every code that has one, fetched from the font's source where the store
    // lacks it. The caller keeps what it gets even if the budget pushes it out of the store.
    static std::map<unsigned int, PGlyph> loadGlyphs(const PFontInfo& font, unsigned int size,
                                                     const std::vector<unsigned int>& codes);
    // The same for laying out a line: above kWholeGlyphSize a TrueType glyph that isn't stored
    // comes pending, with its metrics and without its image.
    static std::map<unsigned int, PGlyph> loadMetrics(const PFontInfo& font, unsigned int size,
                                                      const std::vector<unsigned int>& codes);
    // The part of one glyph that windowOf asks for (see TTFHelper::loadGlyphPart), for a glyph
    // larger than the picture it is drawn on; the part is not stored. A stored or built-in
    // glyph comes whole.
    static PGlyph loadGlyphPart(const PFontInfo& font, unsigned int size, unsigned int code,
                                const TTFHelper::WindowOf& windowOf);
};
