#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "BarcodeLib/tree/barcode_canvas_memory_impl.h"
#include "layer/fonts/p_font_draw_helper.h"
#include "layer/fonts/p_font_glyphs_cache.h"
#include "layer/fonts/p_font_info.h"
#include "layer/fonts/p_system_font_helper.h"
#include "layer/fonts/ttf_helper.h"
#include "layer/graphics/p_image.h"
#include "layer/graphics/p_painter.h"
#include "tests/fonts/font_checks.h"

namespace {

constexpr unsigned kWhite = 0xFFFFFFFF;
const PFontInfo kBuiltIn(L"default");

std::set<unsigned> coloursIn(const PImage& page, int fromX, int toX) {
    std::set<unsigned> colours;
    for (int y = 0; y < static_cast<int>(page.height()); ++y) {
        for (int x = fromX; x < toX; ++x) {
            colours.insert(page.getPixel(x, y));
        }
    }
    return colours;
}

// A white page and a helper that writes on it.
struct Page {
    explicit Page(unsigned size = 12, const PFontInfo& font = kBuiltIn, unsigned width = 120,
                  unsigned height = 40)
        : image(width, height, PColor(kWhite, PColor::kNative)) {
        helper.setPaintDevice(&image);
        helper.setFont(font);
        helper.setFontSize(size);
    }
    // Draws at x, 5 and gives the x where the text ended.
    int draw(const std::string& text, int x, unsigned width = 0, const PTextOptions& options = {}) {
        int y = 5;
        helper.draw(text, x, y, width, 0, options);
        EXPECT_EQ(y, 5);
        return x;
    }
    std::vector<unsigned> pixels() const { return pixelsOf(image); }
    std::vector<unsigned> drawnAt(const std::string& text, int x, int y) {
        helper.draw(text, x, y);
        return pixels();
    }

    PImage image;
    PFontDrawHelper helper;
};

TEST(TextDrawing, SizesAndCharactersTheBuiltInFontLacksDrawNothingAndTakeNoRoom) {
    const std::vector<unsigned> blank = Page().pixels();
    for (unsigned size : {5u, 42u}) {
        Page page(size);
        EXPECT_EQ(page.draw("0123", 3), 3) << size;
        EXPECT_EQ(page.pixels(), blank) << size;
    }
    Page plain;
    const int end = plain.draw("AB", 3);
    for (const char* text : {"A B", "A:B", "A@`B", "A\303\251B"}) {
        Page page;
        EXPECT_EQ(page.draw(text, 3), end) << text;
        EXPECT_EQ(page.pixels(), plain.pixels()) << text;
    }
}

TEST(TextDrawing, JustifySpreadsTheLineOverItsWidth) {
    PTextOptions justify;
    justify.justify = true;
    // Digits of the built-in font advance 7 pixels at size 12.
    const struct {
        std::string text;
        unsigned width;
        PTextOptions options;
        std::vector<std::pair<std::string, int>> pieces;  // drawn one by one where they stand
        int endX;
    } cases[] = {
        {"1234", 40, justify, {{"1", 3}, {"2", 14}, {"3", 25}, {"4", 36}}, 47},
        {"1234", 28, justify, {{"1234", 3}}, 31},
        // The fourth digit would start past the limit and is left out.
        {"1234", 20, justify, {{"123", 3}}, 24},
        {"1", 40, justify, {{"1", 3}}, 10},
        {"1234", 0, justify, {{"1234", 3}}, 31},
        {"1234", 40, {}, {{"1234", 3}}, 31},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text + " in " + std::to_string(c.width));
        Page line;
        EXPECT_EQ(line.draw(c.text, 3, c.width, c.options), c.endX);
        Page pieces;
        for (const auto& [text, x] : c.pieces) {
            pieces.draw(text, x);
        }
        EXPECT_EQ(line.pixels(), pieces.pixels());
    }
}

TEST(TextDrawing, TrueTypeBlanksTakeHalfTheSizeOrTheDullWidth) {
    const int letter = Page(20, kDejaVu).draw("A", 3) - 3;
    EXPECT_EQ(Page(20, kDejaVu).draw("A A", 3) - 3, 2 * letter + 10);
    PTextOptions wideBlanks;
    wideBlanks.dullWidth = 9;
    Page line(20, kDejaVu);
    EXPECT_EQ(line.draw("A A", 3, 0, wideBlanks) - 3, 2 * letter + 9);
    // The blank is a full-height cell of the brush.
    const int middle = 3 + letter + 4;
    for (int y = 5; y < 25; ++y) {
        EXPECT_EQ(line.image.getPixel(middle, y), 0x00FFFFFFu) << y;
    }
    EXPECT_EQ(line.image.getPixel(middle, 25), kWhite);
}

TEST(TextDrawing, InkTakesThePenAndTheCellsTheBrushOrNone) {
    constexpr unsigned kPen = 0xFF0000FF;
    constexpr unsigned kBrush = 0xFF00FF00;
    Page page(20);
    page.draw("8", 0);
    page.helper.setBackgroundBrush(kBrush);
    page.helper.setPen(kPen);
    int x = 40;
    int y = 5;
    page.helper.draw(std::wstring(L"8"), x, y);
    // A colour change after the glyphs are in the helper's hands still reaches them.
    page.helper.setPen(0xFFFF0000);
    page.draw("8", 80);

    EXPECT_EQ(coloursIn(page.image, 0, 40), (std::set<unsigned>{0xFF000000, 0x00FFFFFF, kWhite}));
    EXPECT_EQ(coloursIn(page.image, 40, 80), (std::set<unsigned>{kPen, kBrush, kWhite}));
    EXPECT_EQ(coloursIn(page.image, 80, 120), (std::set<unsigned>{0xFFFF0000, kBrush, kWhite}));

    // A painter writes in its pen on transparent cells.
    Page painted;
    PPainter painter(&painted.image);
    painter.setPen(PColor(kPen, PColor::kNative));
    painter.drawText(0, 0, 0, 0, L"7", kBuiltIn, 12, PTextOptions());
    EXPECT_EQ(coloursIn(painted.image, 0, 120), (std::set<unsigned>{kPen, 0x00FFFFFF, kWhite}));
}

TEST(TextDrawing, NothingHappensOutsideTheDeviceOrWithoutASize) {
    Page page;
    for (auto [x, y, size] : std::vector<std::tuple<int, int, unsigned>>{
             {120, 0, 12}, {0, 40, 12}, {0, -14, 12}, {0, 0, 0}}) {
        page.helper.setFontSize(size);
        int px = x;
        int py = y;
        page.helper.draw(std::string("12"), px, py);
        EXPECT_EQ(px, x);
        EXPECT_EQ(py, y);
    }
    EXPECT_EQ(page.pixels(), Page().pixels());
}

TEST(CanvasText, TextThatWouldRunOffTheBottomMovesUp) {
    BarcodeVelko::BarcodeCanvasMemoryImpl canvas(60, 100, kWhite);
    canvas.setFont(kBuiltIn);
    canvas.setFontSize(12);
    canvas.setTextColorImp(0xFF0000FF);
    canvas.setXYImp(4, 95);
    canvas.drawTextImp(0, 0, L"42");
    unsigned x = 0;
    unsigned y = 0;
    canvas.getXYImp(&x, &y);
    EXPECT_EQ(x, 4u);
    EXPECT_EQ(y, 95u);

    Page expected(12, kBuiltIn, 60, 100);
    expected.helper.setBackgroundBrush(kWhite);
    expected.helper.setPen(0xFF0000FF);
    int px = 4;
    int py = 87;
    expected.helper.draw(std::string("42"), px, py);
    EXPECT_EQ(pixelsOf(canvas.getImage()), expected.pixels());
}

// Large TrueType text: a glyph gets its image only when it is drawn, and only the part that the
// picture shows when it is larger than the picture; the pixels stay those of whole glyphs.

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
            // Nor has a blank any part to render.
            const auto all = [](unsigned w, unsigned h) { return TTFHelper::Window(0, 0, w, h); };
            EXPECT_TRUE(freeType.loadGlyphPart(font, size, ' ', all).isDull()) << size;
        }
    }
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
        EXPECT_EQ(Page(c.size, font, c.width, c.height).drawnAt(c.text, c.x, c.y),
                  wholeGlyphLine(font, c.size, c.text, page, c.x, c.y))
            << c.size << " " << c.text << " at " << c.x << "," << c.y;
    }
}

TEST(LargeGlyphs, CharactersPastTheEndOfTheLineAreNeverRendered) {
    const PFontInfo font = systemFont(L"DejaVuSans");
    PFontGlyphsCache::clear();
    // Three glyphs of about 500 pixels fit a page 1200 wide; the rest of the line doesn't.
    Page(600, font, 1200, 1300).drawnAt("ABCDEFGHIJ", 0, 0);
    const std::string drawn = "ABC";
    for (char c = 'A'; c <= 'J'; ++c) {
        const bool stored = PFontGlyphsCache::getGlyph(font, 600, unsigned(c)).isValid();
        EXPECT_EQ(stored, drawn.find(c) != std::string::npos) << c;
    }
}

}  // namespace
