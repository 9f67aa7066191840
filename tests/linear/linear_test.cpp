#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "BarcodeLib/linear/strategy_code93.h"
#include "BarcodeLib/linear/strategy_ean13_addon2.h"
#include "BarcodeLib/linear/strategy_ean13_addon5.h"
#include "BarcodeLib/linear/strategy_itf14.h"
#include "BarcodeLib/linear/strategy_standard2of5.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;
using VelkoTest::build;
using VelkoTest::Leaf;
using VelkoTest::leavesOf;
using VelkoTest::modules;
using VelkoTest::sizeTree;
using VelkoTest::textsOf;
using ZXing::BarcodeFormat;

namespace {

StrategyCode93 code93;
StrategyStandard2of5 standard2of5;
StrategyITF14 itf14;
StrategyEAN13AddOn2 addOn2;
StrategyEAN13AddOn5 addOn5;

// Written by hand from the published bar widths, not from the library's table: five bars with
// narrow gaps between them and after them, a wide bar of 3 modules in a digit and of 2 in the
// start (W W N) and the stop (W N W).
TEST(Standard2of5, ModulesFromPublishedWidths) {
    const char* const digits[] = {
        "10101110111010",  // 0: N N W W N
        "11101010101110",  // 1: W N N N W
        "10111010101110",  // 2: N W N N W
        "11101110101010",  // 3: W W N N N
        "10101110101110",  // 4: N N W N W
        "11101011101010",  // 5: W N W N N
        "10111011101010",  // 6: N W W N N
        "10101011101110",  // 7: N N N W W
        "11101010111010",  // 8: W N N W N
        "10111010111010",  // 9: N W N W N
    };
    for (const wchar_t* raw : {L"123457", L"906814"}) {
        std::string expected = "11011010";
        for (const wchar_t* digit = raw; *digit; ++digit) {
            expected += digits[*digit - L'0'];
        }
        const auto leaves = leavesOf(build(standard2of5, raw).get());
        EXPECT_EQ(modules(leaves), expected + "1101011");
        EXPECT_TRUE(leaves[leaves.size() - 2].last);
        EXPECT_EQ(textsOf(leaves), VelkoTest::narrow(raw));
    }
}

// The two characters before the stop are C and K, written from their published widths.
TEST(Code93, CheckCharactersAndWeightWrap) {
    const struct {
        std::wstring value;
        std::string checks;
    } cases[] = {
        // T E S T 9 3: C = 464 mod 47 = 41 (+), K = 617 mod 47 = 6.
        {L"TEST93", "101110110100100010"},
        // 16 values: the 1 weighs 16 in C (G), but 2 in K, whose weight restarts after 15:
        // K = 16 + 2 = 18 (I).
        {L"1" + std::wstring(15, L'0'), "101101000101100010"},
        // 21 values: the 1 weighs 1 in C, whose weight restarts after 20, so C = 1; in K it
        // weighs 22 mod 15 = 7: K = 1 + 7 = 8.
        {L"1" + std::wstring(20, L'0'), "101001000100010010"},
    };
    for (const auto& c : cases) {
        const std::string bars = modules(leavesOf(build(code93, c.value.c_str()).get()));
        ASSERT_EQ(bars.size(), 9 * (c.value.size() + 4) + 1);
        EXPECT_EQ(bars.substr(0, 9), "101011110");
        EXPECT_EQ(bars.substr(bars.size() - 28), c.checks + "1010111101") << bars;
    }
    // The full-ASCII table is read back through a scanner, which can't tell this one apart.
    unsigned first = 0;
    unsigned second = 0;
    EXPECT_EQ(StrategyCode93::translateSymbol(L'$', first, second), 2u);
    EXPECT_EQ(first, 45u);  // (/) and D, not the native $ of value 39
    EXPECT_EQ(second, 13u);
    // So one character gives three patterns between start and stop, or four if shifted.
    EXPECT_EQ(build(code93, L"A")->getMinWidth(), 9u * 5 + 1);
    EXPECT_EQ(build(code93, L"a")->getMinWidth(), 9u * 6 + 1);
}

TEST(ITF14, BearerFrame) {
    auto root = build(itf14, L"11234567890125", 3);
    const auto leaves = leavesOf(root.get());
    ASSERT_GE(leaves.size(), 4u);
    for (const Leaf& bearer : {leaves.front(), leaves[leaves.size() - 2]}) {
        EXPECT_EQ(bearer.kind, '1');
        EXPECT_EQ(bearer.modules, 134u);
        EXPECT_TRUE(bearer.control && bearer.last);
    }
    const std::string symbol = modules(leaves);
    ASSERT_EQ(symbol.size(), 134u);
    // Bearer, quiet zone and start; stop, quiet zone and bearer.
    EXPECT_EQ(symbol.substr(0, 18), "111100000000001010");
    EXPECT_EQ(symbol.substr(116), "110100000000001111");
    EXPECT_EQ(leaves.back().modules, 134u);
    EXPECT_EQ(leaves.back().text, "11234567890125");

    const struct {
        unsigned width, height, fontSize;
        unsigned moduleWidth, bars, bearers;
    } sizes[] = {
        {268, 100, 10, 2, 100 - 10 - 16, 8},
        {401, 100, 0, 2, 100 - 16, 8},  // the module grows only at each multiple of 134
        {402, 60, 10, 3, 60 - 10 - 24, 12},
        {268, 25, 10, 2, 0, 8},  // too low for the frame and the bars: the bearers keep theirs
    };
    for (const auto& s : sizes) {
        sizeTree(itf14, root.get(), s.width, s.height, s.fontSize);
        for (const Leaf& leaf : leavesOf(root.get())) {
            EXPECT_EQ(leaf.scaleX, s.moduleWidth);
            EXPECT_EQ(leaf.height, leaf.kind == 'T' ? s.fontSize
                                   : leaf.control   ? s.bearers
                                                    : s.bars)
                << s.width << "x" << s.height;
        }
    }
}

TEST(EanAddOn, ThreeRows) {
    const struct {
        AbstractBarcodeStrategy* strategy;
        const wchar_t* raw;
        int textAlign;
        std::string addOn;  // the add-on's modules, from the published number sets
        const char* texts;
    } cases[] = {
        // 34 mod 4 = 2: start, 3 from set B, separator, 4 from set A.
        {&addOn2, L"123456789012834", 4, "10110100001010100011", "34|1|234567|890128"},
        {&addOn2, L"123456789012834", 0, "10110100001010100011", "34|123456789012834"},
        // 3 + 18 + 9 + 36 + 15 = 81, row 1: 1 from B, 2 from A, 3 from B, 4 and 5 from A.
        {&addOn5, L"123456789012812345", 5, "10110110011010010011010100001010100011010110001",
         "12345|1|234567|89012|8"},
        // Row 0: two zeros from B, three from A.
        {&addOn5, L"400638133393100000", 6, "10110100111010100111010001101010001101010001101",
         "00000|4006381|333931"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(c.raw)) + " layout " +
                     std::to_string(c.textAlign));
        auto root = build(*c.strategy, c.raw, c.textAlign);
        const bool margins = c.textAlign == 4 || c.textAlign == 5;
        const unsigned width = (margins ? 7 : 0) + 95 + 7 + c.addOn.size();
        ASSERT_EQ(root->getMinWidth(), width);

        // customData 1 marks the add-on's row of text, 2 the bars' row.
        const auto leaves = leavesOf(root.get());
        const std::string bars = modules(leaves, [](const Leaf& l) { return l.customData == 2; });
        EXPECT_EQ(modules(leaves, [](const Leaf& l) { return l.customData == 1; }),
                  bars.substr(0, bars.size() - c.addOn.size()));
        EXPECT_EQ(bars.substr(bars.size() - c.addOn.size()), c.addOn);
        // The text row: edge, centre and edge guards in the layouts 4 to 6, the margin where no
        // digit stands in it, then the add-on's bars continued as they are.
        const std::string guardRow = std::string(c.textAlign >= 4 ? "10101010101" : "") +
                                     (c.textAlign != 5 ? "0000000" : "") + c.addOn;
        EXPECT_EQ(modules(leaves, [](const Leaf& l) { return l.control; }), guardRow);
        EXPECT_TRUE(leaves.back().control && leaves.back().last);
        EXPECT_EQ(textsOf(leaves), c.texts);

        sizeTree(*c.strategy, root.get(), 2 * width, 100, 10, 40);
        for (const Leaf& leaf : leavesOf(root.get())) {
            if (leaf.kind == 'T' && leaf.customData == 1) {
                EXPECT_EQ(leaf.modules, c.addOn.size());
            }
            const unsigned text = leaf.kind == 'T' || leaf.customData == 1 ? 10 : 80;
            EXPECT_EQ(leaf.height, leaf.kind != 'T' && leaf.control ? 4 : text);
            EXPECT_EQ(leaf.scaleX, 2u);
        }
        EXPECT_EQ(root->getHeight(), 100u);
        // Without text, the rows of text vanish and the bars take the whole height.
        sizeTree(*c.strategy, root.get(), width, 100, 0, 40);
        EXPECT_EQ(root->getHeight(), 100u);
        EXPECT_EQ(root->getWidth(), width);
    }
}

enum : unsigned { kInterleaved2of5 = 8, kCode39Ext, kCode93, kITF14 };  // the host's code types
enum : unsigned { kCodaBar = 13, kAddOn2, kAddOn5 };

// Picture sizes as they come out, one for each turn.
struct Size {
    unsigned width, height, rotation;
};

// Full ASCII for Code 39, the start and stop letters of Codabar and the add-on beside EAN-13.
std::string drawAndRead(unsigned type, const std::wstring& value, const Size& size,
                        BarcodeFormat format) {
    ZXing::DecodeHints hints;
    hints.setTryCode39ExtendedMode(true).setReturnCodabarStartEnd(true);
    hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Require);
    return VelkoTest::scan(VelkoTest::draw(type, value, size.width, size.height, size.rotation),
                           format, hints);
}

TEST(LinearScan, FullAsciiReadsBack) {
    const Size sizes[] = {{2400, 120, 0}, {160, 2400, 90}, {1500, 90, 180}};
    int turn = 0;
    for (unsigned type : {kCode39Ext, kCode93}) {
        const BarcodeFormat format =
            type == kCode93 ? BarcodeFormat::Code93 : BarcodeFormat::Code39;
        // The whole of ASCII but NUL, in pieces that fit a picture.
        for (wchar_t first = 1; first < 128; first += 32) {
            std::wstring piece;
            for (wchar_t c = first; c < first + 32 && c < 128; ++c) {
                piece += c;
            }
            const Size& size = sizes[turn++ % 3];
            EXPECT_EQ(drawAndRead(type, piece, size, format), VelkoTest::narrow(piece))
                << type << " at " << size.rotation << ": " << VelkoTest::narrow(piece);
        }
    }
}

TEST(LinearScan, ValuesReadBackWithCheckDigitsAndLetters) {
    using F = BarcodeFormat;
    const struct {
        unsigned type;
        const wchar_t* value;
        F format;
        const char* read;
        Size size;
    } cases[] = {
        {kInterleaved2of5, L"12345", F::ITF, "123457", {300, 100, 0}},
        {kInterleaved2of5, L"0123456789012", F::ITF, "01234567890128", {140, 450, 90}},
        {kITF14, L"1123456789012", F::ITF, "11234567890125", {300, 100, 180}},
        {kITF14, L"0001234560001", F::ITF, "00012345600012", {200, 700, 270}},
        {kCodaBar, L"A12345B", F::Codabar, "A12345B", {140, 450, 90}},
        {kCodaBar, L"C-$:/.+0123456789D", F::Codabar, "C-$:/.+0123456789D", {700, 200, 0}},
        {kCodaBar, L"D01A", F::Codabar, "D01A", {100, 300, 270}},
        {kAddOn2, L"400638133393134", F::EAN13, "4006381333931 34", {300, 100, 180}},
        {kAddOn5, L"978020137962452495", F::EAN13, "9780201379624 52495", {200, 700, 270}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(drawAndRead(c.type, c.value, c.size, c.format), c.read)
            << " at " << c.size.rotation;
    }
}

// 0n covers the four parities of the 2-digit add-on, 0000n the ten rows of the 5-digit one, as
// 3n mod 10 runs through them all.
TEST(LinearScan, EveryAddOnParityReadsBack) {
    int turn = 0;
    for (unsigned type : {kAddOn2, kAddOn5}) {
        for (wchar_t last = L'0'; last <= (type == kAddOn2 ? L'3' : L'9'); ++last) {
            const std::wstring addOn = (type == kAddOn2 ? L"0" : L"0000") + std::wstring(1, last);
            const Size size = turn++ % 2 ? Size{140, 450, 90} : Size{300, 100, 0};
            EXPECT_EQ(drawAndRead(type, L"4006381333931" + addOn, size, BarcodeFormat::EAN13),
                      "4006381333931 " + VelkoTest::narrow(addOn))
                << " at " << size.rotation;
        }
    }
}

}  // namespace
