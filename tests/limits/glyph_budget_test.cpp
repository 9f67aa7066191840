// The glyph store keeps to its budget of bytes, letting the glyphs used longest ago go, while
// what it hands out and the dull glyphs' settled metrics stay as they were.

#include <gtest/gtest.h>

#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/fonts/p_system_font_helper.h"
#include "tests/fonts/font_checks.h"

namespace {

TEST(GlyphBudget, TheGlyphsUsedLongestAgoGoFirst) {
    PFontGlyphsCache::clear();
    const PFontInfo font(L"budget-test");
    // About 40 KB each: the budget holds a few hundred.
    constexpr unsigned kStored = 1000;
    for (unsigned code = 0; code < kStored; ++code) {
        PFontGlyphsCache::storeGlyph(font, 100, code, inkedGlyph(100, 100));
        if (code > 7 && code % 50 == 0) {
            EXPECT_TRUE(PFontGlyphsCache::getGlyph(font, 100, 7).isValid()) << code;
        }
        ASSERT_LE(PFontGlyphsCache::bytes(), PFontGlyphsCache::kByteBudget);
    }
    EXPECT_GT(PFontGlyphsCache::size(), 300u);
    EXPECT_LT(PFontGlyphsCache::size(), kStored);
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(font, 100, 8).isValid());
    EXPECT_TRUE(PFontGlyphsCache::getGlyph(font, 100, 7).isValid());
    EXPECT_TRUE(PFontGlyphsCache::getGlyph(font, 100, kStored - 1).isValid());
    // A copy handed out earlier keeps its pixels when its entry goes.
    const PGlyph kept = PFontGlyphsCache::getGlyph(font, 100, kStored - 1);
    PFontGlyphsCache::clear();
    EXPECT_EQ(PFontGlyphsCache::bytes(), 0u);
    EXPECT_EQ(kept.getPixel(99, 99), PGlyph::kInk);
}

TEST(GlyphBudget, AGlyphTooLargeToKeepIsStillHandedOut) {
    PFontGlyphsCache::clear();
    const PFontInfo font(L"too-large-test");
    PFontGlyphsCache::storeGlyph(font, 12, 'A', inkedGlyph(10, 10));
    // Replacing an entry with a glyph too large to keep leaves no entry at all.
    PFontGlyphsCache::storeGlyph(font, 12, 'A', inkedGlyph(1100, 1100));
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(font, 12, 'A').isValid());
    EXPECT_EQ(PFontGlyphsCache::size(), 0u);

    PSystemFontHelper::loadFontsInfo();
    const PFontInfo dejaVu = PSystemFontHelper::getFontInfo(std::wstring(L"DejaVuSans"));
    const auto glyphs = PFontGlyphsCache::loadGlyphs(dejaVu, 1500, {'W', 'i'});
    ASSERT_EQ(glyphs.size(), 2u);
    EXPECT_GT(glyphs.at('W').width(), 1000u);
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(dejaVu, 1500, 'W').isValid());
    EXPECT_TRUE(PFontGlyphsCache::getGlyph(dejaVu, 1500, 'i').isValid());
}

TEST(GlyphBudget, ADullGlyphKeepsTheMetricsOfItsFirstCallWhenItsImageIsPushedOut) {
    const PFontInfo font(L"settled-dull-test");
    EXPECT_EQ(PFontGlyphsCache::getDull(font, 30, 25, -5).metrics.ascender, 25);
    for (unsigned code = 0; code < 600; ++code) {
        PFontGlyphsCache::storeGlyph(font, 100, code, inkedGlyph(100, 100));
    }
    const PGlyph again = PFontGlyphsCache::getDull(font, 30, 30, 0);
    EXPECT_EQ(again.metrics.ascender, 25);
    EXPECT_EQ(again.metrics.descender, -5);
    EXPECT_TRUE(again.isDull());
    EXPECT_EQ(again.width(), 15u);
}

}  // namespace
