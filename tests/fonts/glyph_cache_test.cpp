#include <gtest/gtest.h>

#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/fonts/p_font_info.h"

namespace {

PGlyph glyphOfWidth(unsigned width) {
    PGlyphMetrics metrics;
    metrics.width = static_cast<int>(width);
    metrics.horiAdvance = static_cast<int>(width);
    return PGlyph(PImage(width, 3, PColor(PGlyph::kInk, PColor::kNative)), metrics);
}

TEST(GlyphCache, StoresOncePerFontSizeAndCodeAndLooksUpWithoutCreating) {
    PFontGlyphsCache::clear();
    const PFontInfo font(L"cache-test", L"/nowhere/a.ttf");
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(font, 12, 'A').isValid());
    EXPECT_TRUE(PFontGlyphsCache::empty());

    PFontGlyphsCache::storeGlyph(font, 12, 'A', glyphOfWidth(3));
    PFontGlyphsCache::storeGlyph(font, 12, 'A', glyphOfWidth(5));
    PFontGlyphsCache::storeGlyph(font, 13, 'A', glyphOfWidth(4));
    EXPECT_EQ(PFontGlyphsCache::size(), 2u);
    EXPECT_EQ(PFontGlyphsCache::getGlyph(font, 12, 'A').width(), 5u);
    // Same name, another file: the same font.
    EXPECT_EQ(PFontGlyphsCache::getGlyph(PFontInfo(L"cache-test", L"/x.ttf"), 13, 'A').width(), 4u);
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(font, 12, 'B').isValid());
    EXPECT_EQ(PFontGlyphsCache::size(), 2u);

    const PGlyph dull = PFontGlyphsCache::getDull(font, 12, 12, -2);
    PFontGlyphsCache::clear();
    EXPECT_EQ(PFontGlyphsCache::size(), 0u);
    EXPECT_TRUE(PFontGlyphsCache::empty());
    const PGlyph again = PFontGlyphsCache::getDull(font, 12, 0, 0);
    EXPECT_EQ(again.pixelData(), dull.pixelData());
}

TEST(GlyphCache, DullGlyphIsABlankHalfCellSettledByItsFirstCall) {
    const PFontInfo font(L"dull-test");
    const PGlyph first = PFontGlyphsCache::getDull(font, 20, 18, -4);
    const PGlyph second = PFontGlyphsCache::getDull(font, 20, 20, 0);
    for (const PGlyph& dull : {first, second}) {
        EXPECT_TRUE(dull.isDull());
        EXPECT_EQ(dull.width(), 10u);
        EXPECT_EQ(dull.height(), 20u);
        EXPECT_EQ(dull.metrics.horiAdvance, 10);
        EXPECT_EQ(dull.metrics.horiBearingY, 20);
        EXPECT_EQ(dull.metrics.ascender, 18);
        EXPECT_EQ(dull.metrics.descender, -4);
        EXPECT_EQ(dull.getPixel(5, 10), PGlyph::kBackground);
    }
    for (unsigned tiny : {0u, 1u, 2u}) {
        const PGlyph dull = PFontGlyphsCache::getDull(font, tiny, 2, 0);
        EXPECT_EQ(dull.width(), 1u);
        EXPECT_EQ(dull.height(), 2u);
        EXPECT_EQ(dull.metrics.horiAdvance, 1);
    }
}

}  // namespace
