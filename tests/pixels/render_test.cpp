#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "BarcodeLib/abstract_barcode_element.h"
#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_bar.h"
#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/barcode_space.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy_code39.h"
#include "tests/support/scan_harness.h"

namespace {

using BarcodeVelko::BarcodeFacade2;
using VelkoTest::Picture;

constexpr unsigned kCode39 = 3;
constexpr unsigned kWhite = 0xFFFFFFFF;
constexpr unsigned kBlack = 0xFF000000;
constexpr unsigned kClear = 0x00FFFFFF;

// The module pattern of a tree's bars and spaces, left to right: '1' dark, '0' light.
class PatternVisitor : public BarcodeVelko::AbstractBarcodeVisitor {
public:
    void visit(BarcodeVelko::BarcodeSpace* space) override {
        modules.append(space->getMinWidth(), '0');
    }
    void visit(BarcodeVelko::BarcodeBar* bar) override { modules.append(bar->getMinWidth(), '1'); }
    void visit(BarcodeVelko::BarcodeText*) override {}

    std::string modules;
};

std::string code39Modules(const std::wstring& value) {
    BarcodeVelko::StrategyCode39 strategy;
    BarcodeVelko::AbstractBarcodeElement* element = nullptr;
    std::wstring text;
    EXPECT_TRUE(strategy.generate(value.c_str(), &element, 3, 0, true, 0, 0, 1, 0, text));
    BarcodeVelko::SmartPtr<BarcodeVelko::AbstractBarcodeElement> root(element);
    PatternVisitor visitor;
    root->visit(&visitor);
    return visitor.modules;
}

void setCode39(BarcodeFacade2& facade, const std::wstring& value, unsigned width, unsigned height,
               unsigned rotation) {
    facade.setCodeAuto(false);
    facade.setCodeType(kCode39);
    facade.setColumnCount(width);
    facade.setRowCount(height);
    facade.setCanvasRotation(rotation);
    facade.setCodeValue(value.c_str());
}

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

// Every pixel of the picture against a symbol laid out by hand: whole pixels per module,
// centred by halves, at the top of the logical canvas, which the rotation then turns.
void expectExactPicture(const Look& look, const std::wstring& value) {
    BarcodeFacade2 facade;
    // The font size is taken before the height, which caps it only at the picture.
    facade.setRowCount(8000);
    facade.setFontSize(look.fontSize);
    setCode39(facade, value, look.width, look.height, look.rotation);
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

    const bool turned = look.rotation == 90 || look.rotation == 270;
    const unsigned canvasWidth = turned ? look.height : look.width;
    const unsigned canvasHeight = turned ? look.width : look.height;
    const std::string modules = code39Modules(value);
    const unsigned moduleWidth = canvasWidth / modules.size();
    const unsigned left = canvasWidth / 2 - modules.size() * moduleWidth / 2;
    const unsigned barHeight = canvasHeight - fontSize;
    const unsigned background = look.transparent ? kClear : look.bgColor;

    unsigned wrong = 0;
    for (unsigned py = 0; py < picture.height; ++py) {
        for (unsigned px = 0; px < picture.width; ++px) {
            unsigned x = px;
            unsigned y = py;
            switch (look.rotation) {
                case 90:
                    x = py;
                    y = canvasHeight - 1 - px;
                    break;
                case 180:
                    x = canvasWidth - 1 - px;
                    y = canvasHeight - 1 - py;
                    break;
                case 270:
                    x = canvasWidth - 1 - py;
                    y = px;
                    break;
            }
            const unsigned pixel = picture.pixel(px, py);
            if (y >= barHeight) {
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

TEST(RenderTest, Code39ScansBackInEveryRotationAndSize) {
    const std::vector<std::wstring> values{L"0123456789", L"ABCDEFGHIJKLM", L"NOPQRSTUVWXYZ",
                                           L"- .$/+%", L"CODE 39-A1"};
    struct Size {
        unsigned along, across;
    };
    for (const Size size : {Size{420, 80}, Size{900, 150}, Size{1500, 400}}) {
        for (unsigned rotation : {0u, 90u, 180u, 270u}) {
            const bool turned = rotation == 90 || rotation == 270;
            for (const std::wstring& value : values) {
                BarcodeFacade2 facade;
                setCode39(facade, value, turned ? size.across : size.along,
                          turned ? size.along : size.across, rotation);
                const Picture picture = VelkoTest::render(facade);
                const std::string expected(value.begin(), value.end());
                EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::Code39), expected)
                    << "rotation " << rotation << ", along " << size.along;
            }
        }
    }
}

// The light space on each side of the dark pixels, named as the logical canvas sees them.
struct Gaps {
    unsigned top, bottom, left, right;
};

Gaps logicalGaps(const Picture& picture, unsigned rotation) {
    unsigned minX = picture.width, minY = picture.height, maxX = 0, maxY = 0;
    for (unsigned y = 0; y < picture.height; ++y) {
        for (unsigned x = 0; x < picture.width; ++x) {
            if (picture.pixel(x, y) == kBlack) {
                minX = std::min(minX, x);
                maxX = std::max(maxX, x);
                minY = std::min(minY, y);
                maxY = std::max(maxY, y);
            }
        }
    }
    const Gaps physical{minY, picture.height - 1 - maxY, minX, picture.width - 1 - maxX};
    switch (rotation) {
        case 90:
            return {physical.right, physical.left, physical.top, physical.bottom};
        case 180:
            return {physical.bottom, physical.top, physical.right, physical.left};
        case 270:
            return {physical.left, physical.right, physical.bottom, physical.top};
        default:
            return physical;
    }
}

TEST(RenderTest, VerticalAlignmentPlacesASquareSymbol) {
    constexpr unsigned kQRCode = 16;
    for (unsigned rotation : {0u, 90u, 180u, 270u}) {
        for (unsigned align : {1u, 2u, 3u}) {
            const bool turned = rotation == 90 || rotation == 270;
            BarcodeFacade2 facade;
            facade.setCodeAuto(false);
            facade.setCodeType(kQRCode);
            facade.setColumnCount(turned ? 240 : 101);
            facade.setRowCount(turned ? 101 : 240);
            facade.setCanvasRotation(rotation);
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
    struct Case {
        const char* name;
        std::function<void(BarcodeFacade2&)> setUp;
        int code;
        std::wstring message;
    };
    const std::vector<Case> cases{
        {"no width", [](BarcodeFacade2& f) { f.setColumnCount(0); }, 2, L"size too small"},
        {"one module short", [](BarcodeFacade2& f) { f.setRowCount(110); }, 2, L"size too small"},
        {"refused value", [](BarcodeFacade2& f) { f.setCodeValue(L"lower case"); }, 3,
         L"invalid barcode"},
        // A Base64 value that decodes to nothing makes the strategy's trial throw.
        {"exception in generation",
         [](BarcodeFacade2& f) {
             f.setDataType(1);
             EXPECT_ANY_THROW(f.setCodeValue(L"\n"));
         },
         1, L"Generation error. Possibly incorrect parameters."},
    };
    for (const Case& c : cases) {
        // Neither the rotation nor the background reach an error picture.
        BarcodeFacade2 facade;
        setCode39(facade, L"AB-12", 50, 111, 90);
        facade.setBgTransparent(true);
        facade.setBgColor(0x11223344);
        c.setUp(facade);
        const Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(facade.getLastError().code(), c.code) << c.name;
        EXPECT_EQ(facade.getLastError().message().toStdWString(), c.message) << c.name;
        EXPECT_EQ(picture.width, 200u) << c.name;
        EXPECT_EQ(picture.height, 100u) << c.name;
        EXPECT_EQ(picture.pixel(0, 0), kWhite) << c.name;
        EXPECT_EQ(picture.pixel(199, 99), kWhite) << c.name;
        // The message is written in black, the one colour with zero samples here.
        EXPECT_NE(std::count(picture.rgba.begin(), picture.rgba.end(), 0), 0) << c.name;

        // The next good picture clears the error.
        facade.setDataType(0);
        facade.setColumnCount(50);
        facade.setRowCount(300);
        facade.setCodeValue(L"AB-12");
        EXPECT_EQ(VelkoTest::render(facade).height, 300u) << c.name;
        EXPECT_EQ(facade.getLastError().code(), 0) << c.name;
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

}  // namespace
