#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/def_font_data.h"
#include "layer/fonts/p_default_font_loader.h"
#include "layer/fonts/p_glyph_stump.h"
#include "tests/fonts/font_checks.h"

namespace {

TEST(BuiltInFontTable, HoldsEveryCharacterAtEverySizeWithItsSizeRules) {
    std::vector<unsigned> codes;
    for (auto [first, last] : std::vector<std::pair<unsigned, unsigned>>{
             {'0', '9'}, {'a', 'z'}, {'A', 'Z'}, {33, 47}, {91, 95}, {123, 126}}) {
        for (unsigned code = first; code <= last; ++code) {
            codes.push_back(code);
        }
    }
    ASSERT_EQ(codes.size(), 86u);
    ASSERT_EQ(def_font_data_count, 3096u);
    // The descender goes one pixel further down past each of these sizes.
    const int descenderSteps[] = {9, 14, 19, 24, 29, 33, 38, 41};
    unsigned index = 0;
    for (int size = 6; size <= 41; ++size) {
        int descender = -1;
        for (int step : descenderSteps) {
            descender -= size > step;
        }
        for (unsigned code : codes) {
            const PGlyphStump& stump = def_font_data[index++];
            SCOPED_TRACE("size " + std::to_string(size) + " code " + std::to_string(code));
            ASSERT_EQ(stump.size, size);
            ASSERT_EQ(stump.code, code);
            EXPECT_EQ(stump.font, 0);
            EXPECT_EQ(stump.ascender, size);
            EXPECT_EQ(stump.descender, descender);
            EXPECT_EQ(stump.vertAdvance, size <= 17 ? size : size - 1);
            EXPECT_EQ(stump.dataSize, stump.height * ((stump.width + 7) / 8));
            EXPECT_LE(stump.dataSize, PGlyphStump::kBitmapCapacity);
            EXPECT_GT(stump.dataSize, 0);
        }
    }
}

TEST(GlyphStump, EveryRecordSurvivesTheWayToAGlyphAndBack) {
    for (unsigned i = 0; i < def_font_data_count; ++i) {
        const PGlyphStump& stump = def_font_data[i];
        PGlyphStump back;
        glyph2Stump(stump.font, stump.size, static_cast<int>(stump.code), stump2Glyph(stump), back);
        ASSERT_EQ(serializeStump(back), serializeStump(stump)) << "record " << i;
    }
}

TEST(GlyphStump, BitsLandOnTheirPixelsAndTheTextFormListsTheBytesInUse) {
    // Nine columns: two bytes a row, the ninth pixel in the second byte's top bit.
    const PGlyphStump stump(0, 6, 49, 6, -1, 2, 9, 3, 1, 4, 6, -2, 0, 4, {0x80, 0x00, 0x01, 0x80});
    EXPECT_EQ(serializeStump(stump), "{0,6,49,6,-1,2,9,3,1,4,6,-2,0,4,{0x80,0x00,0x01,0x80},{}}");
    EXPECT_EQ(char2hex(static_cast<char>(0xAB)), "ab");
    const PGlyph glyph = stump2Glyph(stump);
    EXPECT_EQ(inkRows(glyph), "#........|.......##|");
    EXPECT_EQ(glyph.metrics.horiBearingX, 1);
    EXPECT_EQ(glyph.metrics.horiAdvance, 3);

    // No bytes in use: a valid blank glyph.
    const PGlyph blank =
        stump2Glyph(PGlyphStump(0, 10, 65, 10, -2, 3, 4, 5, 0, 3, 10, 0, 0, 0, {}));
    ASSERT_TRUE(blank.isValid());
    EXPECT_EQ(blank.getPixel(2, 1), PGlyph::kBackground);
}

TEST(GlyphStump, ABitmapTooLargeForTheRecordIsRefused) {
    PGlyphStump stump;
    try {
        glyph2Stump(0, 41, 65, inkedGlyph(17, 67), stump);
        ADD_FAILURE() << "no throw";
    } catch (int code) {
        EXPECT_EQ(code, 1);
    }
    // 16 columns by 100 rows is exactly 200 bytes.
    glyph2Stump(0, 41, 65, inkedGlyph(16, 100), stump);
    EXPECT_EQ(stump.dataSize, 200);
}

TEST(DefaultFontLoader, HasTheBracketsButNoColonAndSharesPixelsUntilAChange) {
    ASSERT_TRUE(PDefaultFontLoader::initializeFonts());
    for (int size = 6; size <= 41; ++size) {
        EXPECT_FALSE(PDefaultFontLoader::getGlyph(size, ':').isValid()) << size;
        EXPECT_TRUE(PDefaultFontLoader::getGlyph(size, '(').isValid()) << size;
        EXPECT_TRUE(PDefaultFontLoader::getGlyph(size, ')').isValid()) << size;
    }
    PGlyph first = PDefaultFontLoader::getGlyph(12, 'A');
    const PGlyph second = PDefaultFontLoader::getGlyph(12, 'A');
    const PImage& firstImage = first;
    EXPECT_EQ(firstImage.pixelData(), second.pixelData());
    first.setPixel(0, 0, 0x12345678);
    EXPECT_NE(firstImage.pixelData(), second.pixelData());
    EXPECT_NE(PDefaultFontLoader::getGlyph(12, 'A').getPixel(0, 0), 0x12345678u);
}

}  // namespace
