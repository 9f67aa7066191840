#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/fonts/p_font_info.h"
#include "layer/fonts/p_system_font_helper.h"
#include "layer/fonts/ttf_helper.h"
#include "tests/fonts/font_checks.h"

namespace {

constexpr int kMono = 1;
constexpr int kGrey = 2;

TEST(FreeTypeBitmap, GreyAbove32IsInkMonoBitsFromTheLeft) {
    const unsigned char grey[] = {0, 32, 33, 255, 99, 1, 0, 0};
    // Pitch 4 with three pixels a row: the fourth byte of each row is padding.
    const PImage image = TTFHelper::bitmapToImage(grey, 3, 2, 4, kGrey);
    EXPECT_EQ(inkRows(image), "..#|#..|");
    for (int i = 0; i < 6; ++i) {
        const unsigned pixel = image.getPixel(i % 3, i / 3);
        EXPECT_TRUE(pixel == PGlyph::kInk || pixel == PGlyph::kBackground) << i;
    }
    // Mono: bits from the left.
    const unsigned char mono[] = {0xA0, 0x80, 0x40, 0x00};
    EXPECT_EQ(inkRows(TTFHelper::bitmapToImage(mono, 9, 2, 2, kMono)), "#.#.....#|.#.......|");
    // A negative pitch: the first row in memory is the bottom one.
    EXPECT_EQ(inkRows(TTFHelper::bitmapToImage(mono, 9, 2, -2, kMono)), ".#.......|#.#.....#|");
    EXPECT_FALSE(TTFHelper::bitmapToImage(mono, 9, 2, 2, 7).isValid());
    EXPECT_FALSE(TTFHelper::bitmapToImage(nullptr, 9, 2, 2, kMono).isValid());
    // 26.6 metrics truncate toward zero.
    EXPECT_EQ(TTFHelper::fromFixed(-70), -1);
    EXPECT_EQ(TTFHelper::fromFixed(-63), 0);
    EXPECT_EQ(TTFHelper::fromFixed(127), 1);
    EXPECT_EQ(TTFHelper::fromFixed(128), 2);
}

TEST(TTFHelperTest, RendersInkAndGivesBlanksTheDullGlyph) {
    const TTFHelper helper;
    ASSERT_TRUE(helper.isStarted());
    const auto glyphs = helper.loadGlyphs(kDejaVu, 12, {'A', ' ', 'A'});
    ASSERT_EQ(glyphs.size(), 2u);
    const PGlyph& letter = glyphs.at('A');
    EXPECT_FALSE(letter.isDull());
    EXPECT_NE(inkRows(letter).find('#'), std::string::npos);
    EXPECT_GT(letter.metrics.horiAdvance, 0);
    EXPECT_EQ(letter.metrics.ascender, 11);
    EXPECT_EQ(letter.metrics.descender, -2);
    const PGlyph& blank = glyphs.at(' ');
    EXPECT_TRUE(blank.isDull());
    EXPECT_EQ(blank.metrics.horiAdvance, 6);
}

TEST(TTFHelperTest, BuiltInNameAndUnreadableFilesGiveNothing) {
    const TTFHelper helper;
    EXPECT_TRUE(helper.loadGlyphs(PFontInfo(L"default", kDejaVu.file), 12, {'A'}).empty());
    EXPECT_TRUE(helper.loadGlyphs(PFontInfo(L"Missing", L"/no/such/file.ttf"), 12, {'A'}).empty());
    EXPECT_TRUE(helper.loadGlyphs(PFontInfo(L"NoFile"), 12, {'A'}).empty());
    // Nor does the cache keep anything for such a font.
    const PFontInfo unreadable(L"Unreadable", L"/no/such/file.ttf");
    PFontGlyphsCache::loadGlyphs(unreadable, 12, {'A'});
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(unreadable, 12, 'A').isValid());
}

TEST(GlyphLoading, CachedGlyphsStartNoFreeTypeLibrary) {
    const PFontInfo font(L"DejaVuSans-Bold-load-test", kDejaVu.file);
    PFontGlyphsCache::loadGlyphs(font, 14, {'B', 'B', 'C', ' '});
    EXPECT_TRUE(PFontGlyphsCache::getGlyph(font, 14, 'B').isValid());
    EXPECT_TRUE(PFontGlyphsCache::getGlyph(font, 14, ' ').isDull());
    const unsigned starts = TTFHelper::libraryStartCount();
    PFontGlyphsCache::loadGlyphs(font, 14, {'C', 'B', ' '});
    EXPECT_EQ(TTFHelper::libraryStartCount(), starts);
    // The built-in font never needs one.
    PFontGlyphsCache::loadGlyphs(PFontInfo(L"default"), 14, {'7', ' '});
    PFontGlyphsCache::loadGlyphs(PFontInfo(), 14, {'7', ' '});
    EXPECT_EQ(TTFHelper::libraryStartCount(), starts);
    EXPECT_TRUE(PFontGlyphsCache::getGlyph(PFontInfo(L"default"), 14, '7').isValid());
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(PFontInfo(L"default"), 14, ' ').isValid());
}

TEST(SystemFonts, FileNamesBecomeFontNames) {
    // An empty name: the file is no font.
    for (const auto& [file, name] :
         {std::pair{"Roboto-Bold.ttf", L"Roboto-Bold"}, std::pair{"a.ttf.ttf", L"a.ttf"},
          std::pair{" Wide.ttf \n", L"Wide"}, std::pair{".ttf", L""},
          std::pair{"ttfonts.txt", L""}}) {
        PFontInfo font;
        EXPECT_EQ(PSystemFontHelper::fontOfFile("/system/fonts/", file, font), *name != 0) << file;
        if (*name) {
            EXPECT_EQ(font.name, name);
            EXPECT_EQ(font.file.rfind(L"/system/fonts/", 0), 0u);
        }
    }
}

TEST(SystemFonts, TheListHoldsReadableTrueTypeFiles) {
    const std::vector<PFontInfo> fonts = PSystemFontHelper::getFontsInfo();
    const auto dejaVuEntry = std::find(fonts.begin(), fonts.end(), PFontInfo(L"DejaVuSans-Bold"));
    ASSERT_NE(dejaVuEntry, fonts.end());
    EXPECT_EQ(dejaVuEntry->file.substr(dejaVuEntry->file.size() - 20), L"/DejaVuSans-Bold.ttf");
    EXPECT_EQ(PSystemFontHelper::getFontsCount(), fonts.size());
    EXPECT_EQ(PSystemFontHelper::getFontInfo(0u), fonts.front());
    EXPECT_FALSE(PSystemFontHelper::getFontInfo(static_cast<unsigned>(fonts.size())).isValid());
    EXPECT_TRUE(PSystemFontHelper::getFontInfo(L"DejaVuSans-Bold").isValid());
    EXPECT_FALSE(PSystemFontHelper::getFontInfo(L"NoSuchFont").isValid());
}

TEST(GlyphCache, StoresOncePerFontSizeAndCodeAndLooksUpWithoutCreating) {
    PFontGlyphsCache::clear();
    const PFontInfo font(L"cache-test", L"/nowhere/a.ttf");
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(font, 12, 'A').isValid());
    PFontGlyphsCache::storeGlyph(font, 12, 'A', inkedGlyph(3, 3));
    PFontGlyphsCache::storeGlyph(font, 12, 'A', inkedGlyph(5, 3));
    PFontGlyphsCache::storeGlyph(font, 13, 'A', inkedGlyph(4, 3));
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(font, 12, 'B').isValid());
    EXPECT_EQ(PFontGlyphsCache::size(), 2u);
    EXPECT_EQ(PFontGlyphsCache::getGlyph(font, 12, 'A').width(), 5u);
    // Same name, another file: the same font.
    EXPECT_EQ(PFontGlyphsCache::getGlyph(PFontInfo(L"cache-test", L"/x.ttf"), 13, 'A').width(), 4u);

    // The dull glyph outlives a clear.
    const PGlyph dull = PFontGlyphsCache::getDull(font, 12, 12, -2);
    PFontGlyphsCache::clear();
    EXPECT_TRUE(PFontGlyphsCache::empty());
    const PGlyph again = PFontGlyphsCache::getDull(font, 12, 0, 0);
    EXPECT_EQ(again.pixelData(), dull.pixelData());
}

TEST(GlyphCache, DullGlyphIsABlankHalfCellSettledByItsFirstCall) {
    const PFontInfo font(L"dull-test");
    const PGlyph first = PFontGlyphsCache::getDull(font, 20, 18, -4);
    for (const PGlyph& dull : {first, PFontGlyphsCache::getDull(font, 20, 20, 0)}) {
        EXPECT_TRUE(dull.isDull());
        EXPECT_EQ(dull.getPixel(5, 10), PGlyph::kBackground);
        const PGlyphMetrics& m = dull.metrics;
        EXPECT_EQ(std::make_tuple(dull.width(), dull.height(), m.horiAdvance, m.horiBearingY,
                                  m.ascender, m.descender),
                  std::make_tuple(10u, 20u, 10, 20, 18, -4));
    }
    // Never narrower than a pixel.
    for (unsigned tiny : {0u, 1u, 2u}) {
        const PGlyph dull = PFontGlyphsCache::getDull(font, tiny, 2, 0);
        EXPECT_EQ(std::make_tuple(dull.width(), dull.height(), dull.metrics.horiAdvance),
                  std::make_tuple(1u, 2u, 1));
    }
}

// The glyph store keeps to its budget of bytes, letting the glyphs used longest ago go, while
// what it hands out and the dull glyphs' settled metrics stay as they were.
// A dull glyph's metrics, settled by its first call, outlive a full store and its clearing.
TEST(GlyphBudget, TheGlyphsUsedLongestAgoGoFirst) {
    PFontGlyphsCache::clear();
    const PFontInfo font(L"budget-test");
    EXPECT_EQ(PFontGlyphsCache::getDull(font, 30, 25, -5).metrics.ascender, 25);
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
    const PGlyph dull = PFontGlyphsCache::getDull(font, 30, 30, 0);
    EXPECT_EQ(std::make_tuple(dull.metrics.ascender, dull.metrics.descender, dull.width()),
              std::make_tuple(25, -5, 15u));
    EXPECT_TRUE(dull.isDull());
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

}  // namespace
