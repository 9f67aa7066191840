#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/facade/code_types.h"
#include "BarcodeLib/linear/strategy_code39.h"
#include "BarcodeLib/png/dm2png32.h"
#include "tests/support/scan_harness.h"

namespace {

using BarcodeVelko::BarcodeFacade2;
using VelkoTest::Picture;

constexpr unsigned kCode39 = 3;
constexpr unsigned kWhite = 0xFFFFFFFF;
constexpr unsigned kBlack = 0xFF000000;
constexpr unsigned kClear = 0x00FFFFFF;

struct Look {
    unsigned rotation;
    unsigned width, height;
    unsigned barColor, bgColor;
    bool transparent;
    unsigned fontSize;  // 0: no text
};

std::ostream& operator<<(std::ostream& out, const Look& look) {
    return out << "rotation " << look.rotation << ", " << look.width << "x" << look.height
               << ", font " << look.fontSize << (look.transparent ? ", transparent" : "");
}

// The picture as the logical canvas drew it, before the rotation turned it clockwise.
Picture upright(Picture picture, unsigned rotation) {
    for (unsigned turn = rotation / 90; turn % 4 != 0; ++turn) {
        picture = VelkoTest::rotate90(picture);
    }
    return picture;
}

// Every pixel of the picture against a symbol laid out by hand: whole pixels per module,
// centred by halves, at the top of the logical canvas, which the rotation then turns.
void expectExactPicture(const Look& look, const std::wstring& value) {
    BarcodeFacade2 facade;
    // The font size is taken before the height, which caps it only at the picture.
    facade.setRowCount(8000);
    facade.setFontSize(look.fontSize);
    VelkoTest::setUp(facade, kCode39, look.width, look.height, look.rotation);
    facade.setCodeValue(value.c_str());
    facade.setBarColor(look.barColor);
    facade.setBgColor(look.bgColor);
    facade.setBgTransparent(look.transparent);
    facade.setTextVisible(look.fontSize != 0);
    // A visible text is at least 2 pixels high and at most half the picture.
    const unsigned fontSize =
        look.fontSize == 0 ? 0 : std::min(std::max(look.fontSize, 2u), look.height / 2);
    facade.setTextColor(look.barColor ^ 0x00FFFFFF);
    const Picture picture = VelkoTest::render(facade);
    ASSERT_EQ(facade.getLastError().code(), 0) << look;
    ASSERT_EQ(picture.width, look.width) << look;
    ASSERT_EQ(picture.height, look.height) << look;

    const Picture canvas = upright(picture, look.rotation);
    BarcodeVelko::StrategyCode39 strategy;
    const std::string modules =
        VelkoTest::modules(VelkoTest::leavesOf(VelkoTest::build(strategy, value, 3).get()));
    const unsigned moduleWidth = canvas.width / modules.size();
    const unsigned left = canvas.width / 2 - modules.size() * moduleWidth / 2;
    const unsigned background = look.transparent ? kClear : look.bgColor;
    unsigned wrong = 0;
    for (unsigned y = 0; y < canvas.height; ++y) {
        for (unsigned x = 0; x < canvas.width; ++x) {
            const unsigned pixel = canvas.pixel(x, y);
            if (y >= canvas.height - fontSize) {
                // The text row: whatever the text draws, no bar reaches into it.
                wrong += pixel == look.barColor;
                continue;
            }
            const unsigned module = x >= left ? (x - left) / moduleWidth : modules.size();
            const bool dark = module < modules.size() && modules[module] == '1';
            wrong += pixel != (dark ? look.barColor : background);
        }
    }
    EXPECT_EQ(wrong, 0u) << look;
}

TEST(RenderTest, BarsLandWhereTheTreePutsThemInEveryRotation) {
    for (const Look& look : std::vector<Look>{
             {0, 200, 120, kBlack, kWhite, false, 0},
             // PNG samples R 255, G 0, B 0, A 0 for the bars, alpha 0 for every space.
             {90, 250, 340, 0x000000FF, kWhite, true, 0},
             {90, 250, 227, kBlack, kWhite, false, 0},
             {180, 301, 80, kBlack, 0x80402010, false, 0},
             {270, 90, 345, 0x7F00FF00, kWhite, false, 14},
             {0, 111, 40, kBlack, kWhite, true, 12},
             {180, 223, 60, kBlack, kWhite, true, 1},
             {0, 200, 40, kBlack, kWhite, false, 30},
         }) {
        expectExactPicture(look, L"AB-12");
    }
}

// An object paints each picture over the pixels of the one before when the size allows: none
// of them may show through, whatever changed in between.
TEST(RenderTest, APictureKeepsNothingOfTheOneBefore) {
    const struct {
        unsigned type;
        std::wstring value;
        unsigned width, height, rotation;
        bool transparent;
    } steps[] = {
        {kCode39, L"AB-12", 300, 150, 0, false}, {16, L"QR on the same pixels", 300, 150, 0, true},
        {kCode39, L"XY", 150, 300, 90, false},   {kCode39, L"XY", 150, 300, 90, true},
        {kCode39, L"ONE", 300, 100, 0, false},
    };
    BarcodeFacade2 facade;
    for (const auto& step : steps) {
        BarcodeFacade2 fresh;
        for (BarcodeFacade2* each : {&facade, &fresh}) {
            VelkoTest::setUp(*each, step.type, step.width, step.height, step.rotation);
            each->setBgTransparent(step.transparent);
            each->setCodeValue(step.value.c_str());
        }
        EXPECT_EQ(VelkoTest::render(facade).rgba, VelkoTest::render(fresh).rgba)
            << step.width << "x" << step.height;
    }
}

// The light space on each side of the dark pixels, as the logical canvas sees them.
struct Gaps {
    unsigned top, bottom, left, right;
};

Gaps logicalGaps(const Picture& picture, unsigned rotation) {
    const Picture canvas = upright(picture, rotation);
    const VelkoTest::Box box =
        VelkoTest::boxOf(canvas, [](unsigned pixel) { return pixel == kBlack; });
    return {box.top, canvas.height - box.bottom, box.left, canvas.width - box.right};
}

TEST(RenderTest, VerticalAlignmentPlacesASquareSymbol) {
    constexpr unsigned kQRCode = 16;
    for (unsigned rotation : {0u, 90u, 180u, 270u}) {
        for (unsigned align : {1u, 2u, 3u}) {
            const bool turned = rotation == 90 || rotation == 270;
            BarcodeFacade2 facade;
            VelkoTest::setUp(facade, kQRCode, turned ? 240 : 101, turned ? 101 : 240, rotation);
            facade.setBarVerticalAlign(align);
            facade.setCodeValue(L"VELKO");
            const Picture picture = VelkoTest::render(facade);
            ASSERT_EQ(facade.getLastError().code(), 0);
            const Gaps gaps = logicalGaps(picture, rotation);
            EXPECT_LE(std::max(gaps.left, gaps.right) - std::min(gaps.left, gaps.right), 1u);
            // At 180 degrees the placing is upside down, so the picture shows it the right
            // way up.
            const unsigned shownTop = rotation == 180 ? gaps.bottom : gaps.top;
            const unsigned shownBottom = rotation == 180 ? gaps.top : gaps.bottom;
            if (align == 1) {
                EXPECT_LT(shownTop, shownBottom) << rotation;
            } else if (align == 3) {
                EXPECT_GT(shownTop, shownBottom) << rotation;
            } else {
                EXPECT_LE(std::max(gaps.top, gaps.bottom) - std::min(gaps.top, gaps.bottom), 1u)
                    << rotation;
            }
        }
    }
}

TEST(RenderTest, FailuresGiveAnErrorPicture) {
    const struct {
        std::function<void(BarcodeFacade2&)> setUp;
        int code;
        std::wstring message;
    } cases[] = {
        {[](BarcodeFacade2& f) { f.setColumnCount(0); }, 2, L"size too small"},
        {[](BarcodeFacade2& f) { f.setRowCount(110); }, 2, L"size too small"},  // a module short
        {[](BarcodeFacade2& f) { f.setCodeValue(L"lower case"); }, 3, L"invalid barcode"},
        // A Base64 value that decodes to nothing makes the strategy's trial throw.
        {[](BarcodeFacade2& f) {
             f.setDataType(1);
             EXPECT_ANY_THROW(f.setCodeValue(L"\n"));
         },
         1, L"Generation error. Possibly incorrect parameters."},
    };
    for (const auto& c : cases) {
        // Neither the rotation nor the background reach an error picture.
        BarcodeFacade2 facade;
        VelkoTest::setUp(facade, kCode39, 50, 111, 90);
        facade.setCodeValue(L"AB-12");
        facade.setBgTransparent(true);
        facade.setBgColor(0x11223344);
        c.setUp(facade);
        const Picture picture = VelkoTest::render(facade);
        SCOPED_TRACE(VelkoTest::narrow(c.message));
        EXPECT_EQ(facade.getLastError().code(), c.code);
        EXPECT_EQ(facade.getLastError().message().toStdWString(), c.message);
        EXPECT_EQ(std::pair(picture.width, picture.height), std::pair(200u, 100u));
        EXPECT_EQ(picture.pixel(0, 0), kWhite);
        EXPECT_EQ(picture.pixel(199, 99), kWhite);
        // The message is written in black, the one colour with zero samples here: three a pixel,
        // and a message takes more than a hundred.
        EXPECT_GT(std::count(picture.rgba.begin(), picture.rgba.end(), 0), 3 * 100);

        // The next good picture clears the error.
        facade.setDataType(0);
        facade.setColumnCount(50);
        facade.setRowCount(300);
        facade.setCodeValue(L"AB-12");
        EXPECT_EQ(VelkoTest::render(facade).height, 300u);
        EXPECT_EQ(facade.getLastError().code(), 0);
    }
}

TEST(RenderTest, RemovingTheBackgroundNeedsAnEarlierTree) {
    BarcodeFacade2 facade;
    facade.setRemoveExeedBackgroudFlag(true);
    const Picture first = VelkoTest::render(facade);
    EXPECT_EQ(facade.getLastError().code(), 0);
    EXPECT_EQ(first.width, 150u);
    EXPECT_EQ(first.height, 100u);

    // Now the picture shrinks to the tree that the first one drew.
    const Picture second = VelkoTest::render(facade);
    EXPECT_EQ(facade.getLastError().code(), 0);
    EXPECT_EQ(second.width, facade.getColumnCount());
    EXPECT_EQ(second.height, facade.getRowCount());
    EXPECT_LT(second.width, 150u);
    EXPECT_EQ(second.height, 100u);
}

// A tree taken again, from the value's write or from the type search, and a picture's sizes put
// back into it, must draw what a tree generated anew draws; and the measures of the sized tree
// must read as they did.
TEST(RenderTest, ATreeTakenAgainDrawsAsOneGeneratedAnew) {
    const struct {
        bool search;
        unsigned type;
        const wchar_t* value;
        unsigned rotation;
    } cases[] = {{true, 1, L"4601234567893", 0},          {true, 2, L"abc-123", 180},
                 {false, 16, L"https://example.com", 90}, {false, 5, L"Code16k", 270},
                 {false, 17, L"(01)04600822901507", 0},   {false, 6, L"PDF417 example", 0}};
    const auto setUp = [](BarcodeFacade2& facade, const auto& c) {
        facade.setColumnCount(400);
        facade.setRowCount(300);
        facade.setCanvasRotation(c.rotation);
        facade.setCodeAuto(c.search);
        if (!c.search) {
            facade.setCodeType(c.type);
        }
        facade.setCodeValue(c.value);
    };
    for (const auto& c : cases) {
        BarcodeFacade2 facade;
        setUp(facade, c);
        EXPECT_EQ(facade.getCodeType(), c.type);
        const Picture first = VelkoTest::render(facade);
        const unsigned minWidth = facade.getCodeMinWidth();
        const unsigned minHeight = facade.getCodeMinHeight();
        const Picture again = VelkoTest::render(facade);
        // A setting that generation reads, changed and put back, makes it generate anew.
        const unsigned ecl = facade.getECL();
        facade.setECL(ecl == 1 ? 2 : 1);
        facade.getCodeMinWidth();
        VelkoTest::render(facade);
        facade.setECL(ecl);
        const Picture anew = VelkoTest::render(facade);
        EXPECT_EQ(first.rgba, anew.rgba) << c.type;
        EXPECT_EQ(again.rgba, anew.rgba) << c.type;
        EXPECT_EQ(facade.getCodeMinWidth(), minWidth) << c.type;
        EXPECT_EQ(facade.getCodeMinHeight(), minHeight) << c.type;
        // The same value written again measures as generated, not as drawn.
        BarcodeFacade2 fresh;
        setUp(fresh, c);
        facade.setCodeValue(c.value);
        EXPECT_EQ(facade.getCodeMinWidth(), fresh.getCodeMinWidth()) << c.type;
        EXPECT_EQ(facade.getCodeMinHeight(), fresh.getCodeMinHeight()) << c.type;
        EXPECT_EQ(VelkoTest::render(facade).rgba, anew.rgba) << c.type;
    }
}

// The PNG step takes the canvas's word for rows that repeat the row above: each such row must
// repeat it, whatever the type and turn, text and colours; and the rows of bands are known, so
// that the comparisons are really saved.
TEST(RenderTest, RowsSaidToRepeatTheRowAboveDo) {
    for (unsigned type = 0; type < BarcodeVelko::kCodeTypeCount; ++type) {
        for (unsigned rotation : {0u, 90u, 180u, 270u}) {
            BarcodeFacade2 facade;
            VelkoTest::setUp(facade, type, rotation % 180 ? 160 : 260, rotation % 180 ? 260 : 160,
                             rotation);
            facade.setBarColor(0xFF202080);
            std::vector<unsigned char> repeated;
            const PImage image = facade.draw(repeated);
            const size_t rowBytes = 4 * static_cast<size_t>(image.width());
            size_t said = 0;
            for (size_t y = 0; y < repeated.size(); ++y) {
                said += repeated[y];
                EXPECT_TRUE(!repeated[y] || std::equal(image.pixelData() + y * rowBytes,
                                                       image.pixelData() + (y + 1) * rowBytes,
                                                       image.pixelData() + (y - 1) * rowBytes))
                    << "type " << type << " rotation " << rotation << " row " << y;
            }
            if (rotation % 180 == 0 && facade.getLastError().code() == 0) {
                EXPECT_GT(said, image.height() / 4) << "type " << type << " rotation " << rotation;
            }
        }
    }
}

// Scanlines deflated in one pass (lines that repeat the line above, runs within a line, lines
// of their own) and pictures of few colours as palettes of 1 to 8 bits or grey, of more as RGB
// or RGBA:
// every byte, alpha included, comes back as it went in, also in rows that end mid-byte.
TEST(PngStep, EveryPixelComesBackWhateverTheRunsAndColours) {
    // The error is also left unasked, as a caller may.
    const auto roundTrip = [](const std::vector<unsigned char>& pixels, unsigned width,
                              bool askError = true) {
        int error = -1;
        const unsigned height = static_cast<unsigned>(pixels.size() / 4 / width);
        const Picture back = VelkoTest::decodePng(
            BarcodeVelko::DM2PNG32(pixels.data(), width, height, 4, askError ? &error : nullptr));
        EXPECT_EQ(error, askError ? 0 : -1);
        EXPECT_EQ(back.rgba, pixels) << width << " x " << height;
    };
    using Rgba = std::vector<unsigned char>;
    const Rgba white = {255, 255, 255, 255}, black = {0, 0, 0, 255}, clear = {0, 0, 0, 0};
    // Width, height, a new line every so many rows.
    for (const auto& [width, height, every] : std::vector<std::tuple<unsigned, unsigned, unsigned>>{
             {21, 15, 1}, {150, 100, 40}, {4000, 3, 2}, {1000, 600, 250}, {997, 300, 1}}) {
        std::vector<unsigned char> pixels;
        for (unsigned y = 0; y < height; ++y) {
            for (unsigned x = 0; x < width; ++x) {
                const unsigned line = y / every;
                const auto& colour =
                    x > width / 3 && (x * (line + 3) / 7 + line) % 3 == 0 ? black : white;
                pixels.insert(pixels.end(), colour.begin(), colour.end());
            }
        }
        roundTrip(pixels, width);
    }
    constexpr unsigned kSmall = 21 * 15;
    // Rows come in pairs of equal rows; the last three counts have no translucent pixel.
    const unsigned counts[] = {1, 2, 3, 5, 17, 300, 2, 17, 300};
    for (unsigned n = 0; n < std::size(counts); ++n) {
        const unsigned colours = counts[n];
        const bool opaque = n + 3 >= std::size(counts);
        std::vector<unsigned char> pixels;
        for (unsigned i = 0; i < kSmall; ++i) {
            const unsigned pair = i / 21 / 2;
            const unsigned c = ((pair * 21 + i % 21) * 7) % colours;
            pixels.insert(pixels.end(),
                          {static_cast<unsigned char>(c), static_cast<unsigned char>(c >> 8),
                           static_cast<unsigned char>(255 - c % 256),
                           static_cast<unsigned char>(opaque ? 255 : c % 3 * 100)});
        }
        roundTrip(pixels, 21);
    }
    // Black and white go out as grey: white first, black first, a clear black (all-zero bytes)
    // beside white, and the same before a third colour.
    for (const auto& [first, second, third] :
         std::vector<std::tuple<Rgba, Rgba, bool>>{{white, black, false},
                                                   {black, white, false},
                                                   {white, clear, false},
                                                   {clear, white, false},
                                                   {white, clear, true}}) {
        std::vector<unsigned char> pixels;
        for (unsigned i = 0; i < kSmall; ++i) {
            const auto& colour = i % 3 == 0 ? first : second;
            pixels.insert(pixels.end(), colour.begin(), colour.end());
        }
        if (third) {
            pixels.back() = 7;
        }
        roundTrip(pixels, 21, false);
    }
}

}  // namespace
