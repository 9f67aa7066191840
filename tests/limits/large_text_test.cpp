// Large TrueType text: a glyph gets its image only when it is drawn, and only the part that the
// picture shows when it is larger than the picture; the pixels stay those of whole glyphs.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "layer/fonts/p_font_draw_helper.h"
#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/fonts/p_system_font_helper.h"
#include "layer/fonts/ttf_helper.h"
#include "layer/graphics/p_image.h"
#include "layer/graphics/p_painter.h"
#include "tests/fonts/font_checks.h"

namespace {

constexpr unsigned kWhite = 0xFFFFFFFF;

PFontInfo systemFont(const wchar_t* name) {
    PSystemFontHelper::loadFontsInfo();
    return PSystemFontHelper::getFontInfo(std::wstring(name));
}

auto metricsOf(const PGlyph& glyph) {
    const PGlyphMetrics& m = glyph.metrics;
    return std::make_tuple(m.width, m.height, m.horiBearingX, m.horiBearingY, m.horiAdvance,
                           m.vertBearingX, m.vertBearingY, m.vertAdvance, m.ascender, m.descender,
                           glyph.isDull());
}

// The line is laid out from metrics loaded without rendering; they must be the ones that
// rendering gives, blanks and missing characters included.
TEST(LargeGlyphs, MetricsWithoutRenderingAreThoseOfTheRenderedGlyphs) {
    std::vector<unsigned> codes;
    for (unsigned code = 0; code < 256; ++code) {
        codes.push_back(code);
    }
    codes.insert(codes.end(), {0x416, 0x44F, 0x2603, 0x1F600});
    const TTFHelper freeType;
    for (const wchar_t* name : {L"DejaVuSans", L"DejaVuSerif-Italic", L"DejaVuSansMono-Bold"}) {
        const PFontInfo font = systemFont(name);
        ASSERT_TRUE(font.isValid()) << name;
        for (unsigned size : {65u, 173u}) {
            const auto rendered = freeType.loadGlyphs(font, size, codes);
            const auto measured = freeType.loadMetrics(font, size, codes);
            ASSERT_EQ(rendered.size(), codes.size());
            ASSERT_EQ(measured.size(), codes.size());
            for (unsigned code : codes) {
                const PGlyph& whole = rendered.at(code);
                const PGlyph& pending = measured.at(code);
                EXPECT_EQ(metricsOf(pending), metricsOf(whole)) << size << " " << code;
                EXPECT_EQ(pending.pending, !whole.isDull()) << size << " " << code;
            }
        }
    }
}

TEST(LargeGlyphs, APartIsTheWindowOfTheWholeGlyph) {
    const PFontInfo font = systemFont(L"DejaVuSans");
    const TTFHelper freeType;
    const PGlyph whole = freeType.loadGlyphs(font, 120, {'W'}).at('W');
    ASSERT_GT(whole.width(), 60u);
    using Window = TTFHelper::Window;
    const long long w = whole.width();
    const long long h = whole.height();
    const struct {
        Window window;
        Window expected;
    } cases[] = {
        {Window(0, 0, w, h), Window(0, 0, w, h)},
        {Window(-20, -20, 40, 50), Window(0, 0, 20, 30)},
        {Window(w - 10, 5, 100, 7), Window(w - 10, 5, 10, 7)},
        {Window(10, h - 3, 5, 5), Window(10, h - 3, 5, 3)},
        {Window(w, 0, 10, 10), Window()},
    };
    for (const auto& c : cases) {
        const PGlyph part =
            freeType.loadGlyphPart(font, 120, 'W', [&](unsigned, unsigned) { return c.window; });
        EXPECT_FALSE(part.isDull());
        EXPECT_EQ(part.width(), static_cast<unsigned>(c.expected.width));
        EXPECT_EQ(part.height(), static_cast<unsigned>(c.expected.height));
        EXPECT_EQ(part.metrics.horiBearingX, whole.metrics.horiBearingX + c.expected.x);
        EXPECT_EQ(part.metrics.horiBearingY, whole.metrics.horiBearingY - c.expected.y);
        EXPECT_EQ(part.metrics.horiAdvance, whole.metrics.horiAdvance);
        bool same = true;
        for (int y = 0; y < static_cast<int>(part.height()); ++y) {
            for (int x = 0; x < static_cast<int>(part.width()); ++x) {
                same &= part.getPixel(x, y) ==
                        whole.getPixel(x + int(c.expected.x), y + int(c.expected.y));
            }
        }
        EXPECT_TRUE(same) << c.window.x << "," << c.window.y;
    }
    EXPECT_TRUE(
        freeType
            .loadGlyphPart(font, 120, ' ', [](unsigned, unsigned) { return Window(0, 0, 9, 9); })
            .isDull());
}

// The line as a page shows it when every glyph is rendered whole and copied by PPainter, which
// is how the pixels of a line have always come about: no justification, no blanks.
std::vector<unsigned> wholeGlyphLine(const PFontInfo& font, unsigned size, const std::string& text,
                                     PImage page, int x, int y) {
    const TTFHelper freeType;
    const auto glyphs = freeType.loadGlyphs(font, size, {text.begin(), text.end()});
    PPainter painter(&page);
    for (char c : text) {
        if (static_cast<unsigned>(x) > page.width()) {
            break;
        }
        const PGlyph& glyph = glyphs.at(static_cast<unsigned char>(c));
        const PGlyphMetrics& m = glyph.metrics;
        painter.drawImage(x + m.horiBearingX, y + m.ascender - m.horiBearingY, int(glyph.width()),
                          int(glyph.height()), glyph, PPainter::kClipToSize);
        x += m.horiAdvance;
    }
    return pixelsOf(page);
}

std::vector<unsigned> helperLine(const PFontInfo& font, unsigned size, const std::string& text,
                                 PImage page, int x, int y) {
    PFontDrawHelper helper;
    helper.setPaintDevice(&page);
    helper.setFont(font);
    helper.setFontSize(size);
    helper.draw(text, x, y);
    return pixelsOf(page);
}

// Glyphs larger than the page are made only in part; the page must not tell, whether the
// glyphs stand partly above it, left of it, past its right edge or beyond the end of the line.
TEST(LargeGlyphs, PartsOfGlyphsDrawWhatWholeGlyphsDraw) {
    const PFontInfo font = systemFont(L"DejaVuSerif-Italic");
    const struct {
        unsigned size;
        const char* text;
        unsigned width;
        unsigned height;
        int x;
        int y;
    } cases[] = {
        {300, "W@9Qj", 150, 240, 0, 0},   {300, "W@9Qj", 150, 240, 0, -120},
        {180, "AVAV", 420, 100, 30, -60}, {90, "g|g|g|g", 70, 60, -25, 10},
        {66, "Mmm", 200, 80, 5, 5},       {400, "fj", 900, 300, -150, -200},
    };
    for (const auto& c : cases) {
        PFontGlyphsCache::clear();
        const PImage page(c.width, c.height, PColor(kWhite, PColor::kNative));
        EXPECT_EQ(helperLine(font, c.size, c.text, page, c.x, c.y),
                  wholeGlyphLine(font, c.size, c.text, page, c.x, c.y))
            << c.size << " " << c.text << " at " << c.x << "," << c.y;
    }
}

TEST(LargeGlyphs, CharactersPastTheEndOfTheLineAreNeverRendered) {
    const PFontInfo font = systemFont(L"DejaVuSans");
    PFontGlyphsCache::clear();
    // Three glyphs of about 500 pixels fit a page 1200 wide; the rest of the line doesn't.
    helperLine(font, 600, "ABCDEFGHIJ", PImage(1200, 1300, PColor(kWhite, PColor::kNative)), 0, 0);
    const std::string drawn = "ABC";
    for (char c = 'A'; c <= 'J'; ++c) {
        const bool stored = PFontGlyphsCache::getGlyph(font, 600, unsigned(c)).isValid();
        EXPECT_EQ(stored, drawn.find(c) != std::string::npos) << c;
    }
}

}  // namespace
