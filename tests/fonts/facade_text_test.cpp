#include <gtest/gtest.h>

#include <string>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "layer/fonts/p_default_font_loader.h"
#include "layer/fonts/p_font_glyphs_cache.h"
#include "tests/support/scan_harness.h"

namespace {

constexpr unsigned kBlack = 0xFF000000;

// True if the glyph's ink stands in the picture somewhere, black, with no black on its
// background pixels.
bool showsGlyph(const VelkoTest::Picture& picture, const PGlyph& glyph) {
    const unsigned w = glyph.width();
    const unsigned h = glyph.height();
    if (w == 0 || h == 0 || w > picture.width || h > picture.height) {
        return false;
    }
    for (unsigned top = 0; top + h <= picture.height; ++top) {
        for (unsigned left = 0; left + w <= picture.width; ++left) {
            bool match = true;
            for (unsigned y = 0; y < h && match; ++y) {
                for (unsigned x = 0; x < w && match; ++x) {
                    const bool ink = glyph.getPixel(int(x), int(y)) == PGlyph::kInk;
                    match = ink == (picture.pixel(left + x, top + y) == kBlack);
                }
            }
            if (match) {
                return true;
            }
        }
    }
    return false;
}

TEST(FacadeText, AFreshFacadeShowsItsDigitsUnderTheBars) {
    BarcodeVelko::BarcodeFacade2 facade;
    const VelkoTest::Picture picture = VelkoTest::render(facade);
    ASSERT_GT(picture.width, 0u);
    ASSERT_TRUE(PDefaultFontLoader::initializeFonts());
    const std::wstring text = facade.getCodeText();
    ASSERT_EQ(text.size(), 13u);
    for (wchar_t digit : text) {
        const PGlyph glyph = PDefaultFontLoader::getGlyph(int(facade.getFontSize()), digit);
        EXPECT_TRUE(showsGlyph(picture, glyph)) << char(digit);
    }
}

TEST(FacadeText, ATrueTypeFontFromTheListDrawsTheDigits) {
    BarcodeVelko::BarcodeFacade2 facade;
    ASSERT_TRUE(facade.findFont(L"DejaVuSans-Bold"));
    facade.setFont(L"DejaVuSans-Bold");
    facade.setFontSize(20);
    const VelkoTest::Picture picture = VelkoTest::render(facade);
    // Inside the left group, where no neighbour's cell covers it.
    const wchar_t digit = facade.getCodeText()[2];
    const PGlyph trueType = PFontGlyphsCache::getGlyph(PFontInfo(L"DejaVuSans-Bold"), 20, digit);
    ASSERT_TRUE(trueType.isValid());
    ASSERT_TRUE(PDefaultFontLoader::initializeFonts());
    EXPECT_TRUE(showsGlyph(picture, trueType));
    EXPECT_FALSE(showsGlyph(picture, PDefaultFontLoader::getGlyph(20, digit)));
}

TEST(FacadeText, HiddenTextLeavesTheWholeHeightToTheBars) {
    BarcodeVelko::BarcodeFacade2 facade;
    facade.setTextVisible(false);
    const VelkoTest::Picture picture = VelkoTest::render(facade);
    ASSERT_GT(picture.height, 0u);
    unsigned fullColumns = 0;
    for (unsigned x = 0; x < picture.width; ++x) {
        unsigned ink = 0;
        for (unsigned y = 0; y < picture.height; ++y) {
            ink += picture.pixel(x, y) == kBlack;
        }
        fullColumns += ink == picture.height;
        EXPECT_TRUE(ink == 0 || ink == picture.height) << "column " << x;
    }
    EXPECT_GT(fullColumns, 30u);
}

}  // namespace
