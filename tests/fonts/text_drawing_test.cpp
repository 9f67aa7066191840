#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "BarcodeLib/barcode_canvas_memory_impl.h"
#include "layer/fonts/p_font_draw_helper.h"
#include "layer/fonts/p_font_info.h"
#include "layer/graphics/p_image.h"
#include "layer/graphics/p_painter.h"

namespace {

constexpr unsigned kWhite = 0xFFFFFFFF;
const PFontInfo kBuiltIn(L"default");
const PFontInfo kDejaVu(L"DejaVuSans-Bold",
                        L"/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");

PImage blankPage(unsigned width = 120, unsigned height = 40) {
    return PImage(width, height, PColor(kWhite, PColor::kNative));
}

std::vector<unsigned> pixelsOf(const PImage& image) {
    std::vector<unsigned> pixels;
    for (int y = 0; y < static_cast<int>(image.height()); ++y) {
        for (int x = 0; x < static_cast<int>(image.width()); ++x) {
            pixels.push_back(image.getPixel(x, y));
        }
    }
    return pixels;
}

std::set<unsigned> coloursIn(const PImage& page, int fromX, int toX) {
    std::set<unsigned> colours;
    for (int y = 0; y < static_cast<int>(page.height()); ++y) {
        for (int x = fromX; x < toX; ++x) {
            colours.insert(page.getPixel(x, y));
        }
    }
    return colours;
}

// Draws each piece at its own x on one page, as a reference for a line.
PImage piecesAt(const std::vector<std::pair<std::string, int>>& pieces, unsigned size = 12,
                const PFontInfo& font = kBuiltIn) {
    PImage page = blankPage();
    PFontDrawHelper helper;
    helper.setPaintDevice(&page);
    helper.setFont(font);
    helper.setFontSize(size);
    for (const auto& [text, x] : pieces) {
        int px = x;
        int py = 5;
        helper.draw(text, px, py);
    }
    return page;
}

struct Line {
    PImage page;
    int endX;
};

Line drawLine(const std::string& text, unsigned w, const PTextOptions& options, unsigned size = 12,
              const PFontInfo& font = kBuiltIn) {
    Line line{blankPage(), 3};
    PFontDrawHelper helper;
    helper.setPaintDevice(&line.page);
    helper.setFont(font);
    helper.setFontSize(size);
    int y = 5;
    helper.draw(text, line.endX, y, w, 0, options);
    EXPECT_EQ(y, 5);
    return line;
}

PTextOptions justified() {
    PTextOptions options;
    options.justify = true;
    return options;
}

TEST(TextDrawing, SizesAndCharactersTheBuiltInFontLacksDrawNothingAndTakeNoRoom) {
    for (unsigned size : {5u, 42u}) {
        const Line line = drawLine("0123", 0, {}, size);
        EXPECT_EQ(line.endX, 3) << size;
        EXPECT_EQ(pixelsOf(line.page), pixelsOf(blankPage())) << size;
    }
    const std::vector<unsigned> plain = pixelsOf(drawLine("AB", 0, {}).page);
    for (const char* text : {"A B", "A:B", "A@`B",
                             "A\xC3\xA9"
                             "B"}) {
        const Line line = drawLine(text, 0, {});
        EXPECT_EQ(pixelsOf(line.page), plain) << text;
        EXPECT_EQ(line.endX, drawLine("AB", 0, {}).endX) << text;
    }
}

TEST(TextDrawing, JustifySpreadsTheLineOverItsWidth) {
    // Digits of the built-in font advance 7 pixels at size 12.
    struct Case {
        std::string text;
        unsigned width;
        PTextOptions options;
        std::vector<std::pair<std::string, int>> expected;
        int endX;
    };
    const std::vector<Case> cases = {
        {"1234", 40, justified(), {{"1", 3}, {"2", 14}, {"3", 25}, {"4", 36}}, 47},
        {"1234", 28, justified(), {{"1234", 3}}, 31},
        // The fourth digit would start past the limit and is left out.
        {"1234", 20, justified(), {{"123", 3}}, 24},
        {"1", 40, justified(), {{"1", 3}}, 10},
        {"1234", 0, justified(), {{"1234", 3}}, 31},
        {"1234", 40, {}, {{"1234", 3}}, 31},
    };
    for (const Case& c : cases) {
        const Line line = drawLine(c.text, c.width, c.options);
        SCOPED_TRACE(c.text + " in " + std::to_string(c.width));
        EXPECT_EQ(line.endX, c.endX);
        EXPECT_EQ(pixelsOf(line.page), pixelsOf(piecesAt(c.expected)));
    }
}

TEST(TextDrawing, TrueTypeBlanksTakeHalfTheSizeOrTheDullWidth) {
    const int letter = drawLine("A", 0, {}, 20, kDejaVu).endX - 3;
    EXPECT_EQ(drawLine("A A", 0, {}, 20, kDejaVu).endX - 3, 2 * letter + 10);
    PTextOptions wideBlanks;
    wideBlanks.dullWidth = 9;
    const Line line = drawLine("A A", 0, wideBlanks, 20, kDejaVu);
    EXPECT_EQ(line.endX - 3, 2 * letter + 9);
    // The blank is a full-height cell of the brush.
    const int middle = 3 + letter + 4;
    for (int y = 5; y < 25; ++y) {
        EXPECT_EQ(line.page.getPixel(middle, y), 0x00FFFFFFu) << y;
    }
    EXPECT_EQ(line.page.getPixel(middle, 25), kWhite);
}

TEST(TextDrawing, InkTakesThePenAndTheCellsTheBrush) {
    constexpr unsigned kPen = 0xFF0000FF;
    constexpr unsigned kBrush = 0xFF00FF00;
    PImage page = blankPage();
    PFontDrawHelper helper;
    helper.setPaintDevice(&page);
    helper.setFont(kBuiltIn);
    helper.setFontSize(20);
    int x = 0;
    int y = 0;
    helper.draw(std::string("8"), x, y);
    helper.setBackgroundBrush(kBrush);
    helper.setPen(kPen);
    x = 40;
    helper.draw(std::wstring(L"8"), x, y);
    // A colour change after the glyphs are in the helper's hands still reaches them.
    helper.setPen(0xFFFF0000);
    x = 80;
    helper.draw(std::string("8"), x, y);

    EXPECT_EQ(coloursIn(page, 0, 40), (std::set<unsigned>{0xFF000000, 0x00FFFFFF, kWhite}));
    EXPECT_EQ(coloursIn(page, 40, 80), (std::set<unsigned>{kPen, kBrush, kWhite}));
    EXPECT_EQ(coloursIn(page, 80, 120), (std::set<unsigned>{0xFFFF0000, kBrush, kWhite}));
}

TEST(TextDrawing, NothingHappensOutsideTheDeviceOrWithoutASize) {
    PImage page = blankPage();
    PFontDrawHelper helper;
    helper.setPaintDevice(&page);
    helper.setFont(kBuiltIn);
    for (auto [x, y, size] : std::vector<std::tuple<int, int, unsigned>>{
             {120, 0, 12}, {0, 40, 12}, {0, -14, 12}, {0, 0, 0}}) {
        helper.setFontSize(size);
        int px = x;
        int py = y;
        helper.draw(std::string("12"), px, py);
        EXPECT_EQ(px, x);
        EXPECT_EQ(py, y);
    }
    EXPECT_EQ(pixelsOf(page), pixelsOf(blankPage()));
}

TEST(PainterText, DrawsInThePenOnTransparentCells) {
    PImage page = blankPage();
    PPainter painter(&page);
    painter.setPen(PColor(0xFF0000FF, PColor::kNative));
    painter.drawText(0, 0, 0, 0, L"7", kBuiltIn, 12, PTextOptions());
    EXPECT_EQ(coloursIn(page, 0, 120), (std::set<unsigned>{0xFF0000FF, 0x00FFFFFF, kWhite}));
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

    PImage expected(60, 100, PColor(kWhite, PColor::kNative));
    PFontDrawHelper helper;
    helper.setPaintDevice(&expected);
    helper.setFont(kBuiltIn);
    helper.setBackgroundBrush(kWhite);
    helper.setPen(0xFF0000FF);
    int px = 4;
    int py = 87;
    helper.draw(std::string("42"), px, py);
    EXPECT_EQ(pixelsOf(canvas.getImage()), pixelsOf(expected));
}

}  // namespace
