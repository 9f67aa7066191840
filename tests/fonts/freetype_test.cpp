#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/fonts/p_system_font_helper.h"
#include "layer/fonts/ttf_helper.h"

namespace {

constexpr int kMono = 1;
constexpr int kGrey = 2;

const PFontInfo& dejaVu() {
    static const PFontInfo font(L"DejaVuSans-Bold",
                                L"/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    return font;
}

std::string inkRows(const PImage& image) {
    std::string rows;
    for (int y = 0; y < static_cast<int>(image.height()); ++y) {
        for (int x = 0; x < static_cast<int>(image.width()); ++x) {
            rows += image.getPixel(x, y) == PGlyph::kInk ? '#' : '.';
        }
        rows += '|';
    }
    return rows;
}

TEST(FreeTypeBitmap, GreyAbove32IsInkAndNothingElseSurvives) {
    const unsigned char grey[] = {0, 32, 33, 255, 99, 1, 0, 0};
    // Pitch 4 with three pixels a row: the fourth byte of each row is padding.
    const PImage image = TTFHelper::bitmapToImage(grey, 3, 2, 4, kGrey);
    EXPECT_EQ(inkRows(image), "..#|#..|");
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x) {
            const unsigned pixel = image.getPixel(x, y);
            EXPECT_TRUE(pixel == PGlyph::kInk || pixel == PGlyph::kBackground) << x << "," << y;
        }
    }
}

TEST(FreeTypeBitmap, MonoBitsFromTheLeftAndUpwardRows) {
    const unsigned char mono[] = {0xA0, 0x80, 0x40, 0x00};
    EXPECT_EQ(inkRows(TTFHelper::bitmapToImage(mono, 9, 2, 2, kMono)), "#.#.....#|.#.......|");
    // A negative pitch: the first row in memory is the bottom one.
    EXPECT_EQ(inkRows(TTFHelper::bitmapToImage(mono, 9, 2, -2, kMono)), ".#.......|#.#.....#|");
    EXPECT_FALSE(TTFHelper::bitmapToImage(mono, 9, 2, 2, 7).isValid());
    EXPECT_FALSE(TTFHelper::bitmapToImage(nullptr, 9, 2, 2, kMono).isValid());
}

TEST(FreeTypeMetrics, WholePixelsTruncateTowardsZero) {
    EXPECT_EQ(TTFHelper::fromFixed(-70), -1);
    EXPECT_EQ(TTFHelper::fromFixed(-63), 0);
    EXPECT_EQ(TTFHelper::fromFixed(127), 1);
    EXPECT_EQ(TTFHelper::fromFixed(128), 2);
}

TEST(TTFHelperTest, RendersInkAndGivesBlanksTheDullGlyph) {
    const TTFHelper helper;
    ASSERT_TRUE(helper.isStarted());
    const auto glyphs = helper.loadGlyphs(dejaVu(), 12, {'A', ' ', 'A'});
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
    EXPECT_TRUE(helper.loadGlyphs(PFontInfo(L"default", dejaVu().file), 12, {'A'}).empty());
    EXPECT_TRUE(helper.loadGlyphs(PFontInfo(L"Missing", L"/no/such/file.ttf"), 12, {'A'}).empty());
    EXPECT_TRUE(helper.loadGlyphs(PFontInfo(L"NoFile"), 12, {'A'}).empty());
}

TEST(GlyphLoading, CachedGlyphsStartNoFreeTypeLibrary) {
    const PFontInfo font(L"DejaVuSans-Bold-load-test", dejaVu().file);
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

TEST(GlyphLoading, AnUnreadableFontStoresNothing) {
    const PFontInfo font(L"Unreadable", L"/no/such/file.ttf");
    PFontGlyphsCache::loadGlyphs(font, 12, {'A'});
    EXPECT_FALSE(PFontGlyphsCache::getGlyph(font, 12, 'A').isValid());
}

TEST(SystemFonts, FileNamesBecomeFontNames) {
    struct Case {
        const char* file;
        bool taken;
        const wchar_t* name;
    };
    for (const Case& c : {Case{"Roboto-Bold.ttf", true, L"Roboto-Bold"},
                          Case{"a.ttf.ttf", true, L"a.ttf"}, Case{" Wide.ttf \n", true, L"Wide"},
                          Case{".ttf", false, L""}, Case{"ttfonts.txt", false, L""}}) {
        PFontInfo font;
        EXPECT_EQ(PSystemFontHelper::fontOfFile("/system/fonts/", c.file, font), c.taken) << c.file;
        if (c.taken) {
            EXPECT_EQ(font.name, c.name);
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

}  // namespace
