#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/strategy_codabar.h"
#include "BarcodeLib/strategy_code39.h"
#include "BarcodeLib/strategy_code39_ext.h"
#include "BarcodeLib/strategy_code93.h"
#include "BarcodeLib/strategy_ean13_addon2.h"
#include "BarcodeLib/strategy_ean13_addon5.h"
#include "BarcodeLib/strategy_interleaved2of5.h"
#include "BarcodeLib/strategy_itf14.h"
#include "BarcodeLib/strategy_standard2of5.h"
#include "tests/linear/leaves.h"

using namespace BarcodeVelko;
using LinearTest::Leaf;
using LinearTest::leavesOf;
using LinearTest::modules;
using LinearTest::textsOf;

namespace {

using Make = std::function<std::unique_ptr<AbstractBarcodeStrategy>()>;

template <class T>
Make make() {
    return [] { return std::unique_ptr<AbstractBarcodeStrategy>(new T); };
}

std::unique_ptr<AbstractBarcodeElement> build(AbstractBarcodeStrategy& strategy, const wchar_t* raw,
                                              int textAlign = 0, std::wstring codeText = L"") {
    AbstractBarcodeElement* root = nullptr;
    EXPECT_TRUE(strategy.generate(raw, &root, textAlign, 0, true, 150, 100, 1, 0, codeText)) << raw;
    return std::unique_ptr<AbstractBarcodeElement>(root);
}

void size(AbstractBarcodeStrategy& strategy, AbstractBarcodeElement* root, unsigned width,
          unsigned height, unsigned fontSize, unsigned sentinel = 30) {
    std::unique_ptr<AbstractBarcodeVisitor> visitor(
        strategy.sizeVisitor(root, width, height, fontSize, sentinel, 1, 4));
    root->visit(visitor.get());
}

TEST(LinearStrategies, AcceptAndCheck) {
    struct Case {
        Make strategy;
        const wchar_t* text;
        bool raw;              // checkRaw
        const wchar_t* check;  // calcCheckSymbol; null: refused
    } cases[] = {
        {make<StrategyCode39Ext>(), L"Code39 {~}\x7f", true, L""},
        {make<StrategyCode39Ext>(), L"", false, nullptr},
        {make<StrategyCode39Ext>(), L"caf\xe9", false, nullptr},
        {make<StrategyCode93>(), L"\x01 a-Z", true, L""},
        {make<StrategyCode93>(), L"\x80", false, nullptr},
        {make<StrategyStandard2of5>(), L"12345", false, L"7"},
        {make<StrategyStandard2of5>(), L"123457", true, L"0"},
        {make<StrategyStandard2of5>(), L"123456", false, L"1"},
        {make<StrategyStandard2of5>(), L"1234", false, L"2"},
        {make<StrategyStandard2of5>(), L"7", false, L"9"},
        {make<StrategyStandard2of5>(), L"12a4", false, nullptr},
        {make<StrategyInterleaved2of5>(), L"12345", false, L"7"},
        {make<StrategyInterleaved2of5>(), L"123456", true, L"1"},
        {make<StrategyInterleaved2of5>(), L"12 4", false, nullptr},
        {make<StrategyITF14>(), L"1123456789012", false, L"5"},
        {make<StrategyITF14>(), L"11234567890125", true, nullptr},
        {make<StrategyITF14>(), L"11234567890124", false, nullptr},
        {make<StrategyCodaBar>(), L"A12345B", true, L""},
        {make<StrategyCodaBar>(), L"AB", true, L""},
        {make<StrategyCodaBar>(), L"D-$:/.+C", true, L""},
        {make<StrategyCodaBar>(), L"a1b", false, nullptr},
        {make<StrategyCodaBar>(), L"A1E2B", false, nullptr},
        {make<StrategyCodaBar>(), L"A1B2", false, nullptr},
        {make<StrategyEAN13AddOn2>(), L"123456789012834", true, L""},
        {make<StrategyEAN13AddOn2>(), L"123456789012934", false, L""},
        {make<StrategyEAN13AddOn2>(), L"12345678901283x", false, L""},
        {make<StrategyEAN13AddOn2>(), L"123456789012", false, L""},
        {make<StrategyEAN13AddOn2>(), L"12345678901", false, nullptr},
        {make<StrategyEAN13AddOn5>(), L"123456789012812345", true, L""},
        {make<StrategyEAN13AddOn5>(), L"123456789012712345", false, L""},
        {make<StrategyEAN13AddOn5>(), L"123456789012834", false, L""},
    };
    for (const Case& c : cases) {
        auto strategy = c.strategy();
        SCOPED_TRACE(testing::PrintToString(std::wstring(c.text)));
        EXPECT_EQ(strategy->checkRaw(c.text), c.raw);
        std::wstring check = L"?";
        EXPECT_EQ(strategy->calcCheckSymbol(c.text, check), c.check != nullptr);
        if (c.check) {
            EXPECT_EQ(check, c.check);
        }
        AbstractBarcodeElement* root = nullptr;
        std::wstring text;
        EXPECT_EQ(strategy->generate(c.text, &root, 0, 0, true, 150, 100, 1, 0, text), c.raw);
        delete root;
        EXPECT_THROW(strategy->checkRaw(nullptr), BarcodeException::Unexpected);
        EXPECT_THROW(strategy->generate(c.text, nullptr, 0, 0, true, 150, 100, 1, 0, text),
                     BarcodeException::Unexpected);
    }
}

TEST(LinearStrategies, DemoValuesWidthsAndTextAlign) {
    struct Case {
        Make strategy;
        unsigned modules;  // the root's minimum width
        unsigned textAlign;
        bool refusesTextAlign7;
    } cases[] = {
        // C +O +D +E 3 9: nine Code 39 characters.
        {make<StrategyCode39Ext>(), 16 * 9 + 31, 3, false},
        // C +O +D +E 9 3: nine values, then C and K, start and stop.
        {make<StrategyCode93>(), 9 * (9 + 2 + 2) + 1, 3, false},
        {make<StrategyStandard2of5>(), 14 * 6 + 15, 0, true},
        {make<StrategyInterleaved2of5>(), 7 * 6 + 8, 0, true},
        {make<StrategyITF14>(), 134, 3, true},
        // A and B of 10 modules, five digits of 9, six gaps.
        {make<StrategyCodaBar>(), 10 + 5 * 9 + 10 + 6, 0, false},
        {make<StrategyEAN13AddOn2>(), 7 + 95 + 7 + 20, 4, true},
        {make<StrategyEAN13AddOn5>(), 7 + 95 + 7 + 47, 4, true},
    };
    for (const Case& c : cases) {
        auto strategy = c.strategy();
        const std::wstring raw = strategy->getRawDemoValue();
        SCOPED_TRACE(testing::PrintToString(raw));
        std::wstring check;
        ASSERT_TRUE(strategy->calcCheckSymbol(strategy->getDemoValue(), check));
        EXPECT_EQ(strategy->getDemoValue() + check, raw);
        EXPECT_EQ(strategy->getDefaultTextAlign(), c.textAlign);

        auto root = build(*strategy, raw.c_str(), static_cast<int>(c.textAlign));
        ASSERT_TRUE(root);
        EXPECT_EQ(root->getMinWidth(), c.modules);
        // No row is wider than the bars, texts included.
        size(*strategy, root.get(), c.modules, 100, 10);
        EXPECT_EQ(root->getWidth(), c.modules);

        AbstractBarcodeElement* element = nullptr;
        std::wstring text;
        if (c.refusesTextAlign7) {
            EXPECT_THROW(strategy->generate(raw.c_str(), &element, 7, 0, true, 1, 1, 1, 0, text),
                         BarcodeException::TextAlignWrongValue);
        } else {
            EXPECT_TRUE(strategy->generate(raw.c_str(), &element, 7, 0, true, 1, 1, 1, 0, text));
        }
        delete element;
    }
}

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
    StrategyStandard2of5 strategy;
    for (const wchar_t* raw : {L"123457", L"906814", L"17"}) {
        std::string expected = "11011010";
        for (const wchar_t* digit = raw; *digit; ++digit) {
            expected += digits[*digit - L'0'];
        }
        expected += "1101011";
        auto root = build(strategy, raw);
        const auto leaves = leavesOf(root.get());
        EXPECT_EQ(modules(leaves), expected);
        EXPECT_TRUE(leaves[leaves.size() - 2].last);
        EXPECT_EQ(textsOf(leaves), raw);
    }
}

// The two characters before the stop are C and K, written from their published widths.
TEST(Code93, CheckCharactersAndWeightWrap) {
    struct Case {
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
    StrategyCode93 strategy;
    for (const Case& c : cases) {
        auto root = build(strategy, c.value.c_str());
        const std::string bars = modules(leavesOf(root.get()));
        ASSERT_EQ(bars.size(), 9 * (c.value.size() + 4) + 1);
        EXPECT_EQ(bars.substr(0, 9), "101011110");
        EXPECT_EQ(bars.substr(bars.size() - 28), c.checks + "1010111101") << bars;
    }
}

// Each value of the full-ASCII table is read back through a scanner; here only its edges.
TEST(Code93, ShiftedCharacters) {
    unsigned first = 0;
    unsigned second = 0;
    EXPECT_EQ(StrategyCode93::translateSymbol(L'$', first, second), 2u);
    EXPECT_EQ(first, 45u);  // (/) and D, not the native $ of value 39
    EXPECT_EQ(second, 13u);
    EXPECT_THROW(StrategyCode93::translateSymbol(L'\x80', first, second),
                 BarcodeException::Unexpected);
    // Three patterns between start and stop for a native character, four for a shifted one.
    StrategyCode93 strategy;
    EXPECT_EQ(build(strategy, L"A")->getMinWidth(), 9u * 5 + 1);
    EXPECT_EQ(build(strategy, L"a")->getMinWidth(), 9u * 6 + 1);
}

TEST(Code39Ext, PairsOfCode39) {
    struct Case {
        const wchar_t* value;
        const wchar_t* code39;
    } cases[] = {
        {L"CODE39", L"CODE39"},
        {L"Code39", L"C+O+D+E39"},
        {L"*$%/+ \x01\x7f", L"/J/D/E/O/K $A%T"},
    };
    StrategyCode39Ext extended;
    StrategyCode39 plain;
    for (const Case& c : cases) {
        auto root = build(extended, c.value, 3);
        const auto leaves = leavesOf(root.get());
        EXPECT_EQ(modules(leaves), modules(leavesOf(build(plain, c.code39).get()))) << c.code39;
        EXPECT_EQ(textsOf(leaves), c.value);
    }
    EXPECT_THROW(StrategyCode39Ext::encodeChar(L'\x80', nullptr, false),
                 BarcodeException::Unexpected);
}

TEST(CodaBar, GapsBetweenCharacters) {
    StrategyCodaBar strategy;
    auto root = build(strategy, L"AB");
    const std::string bars = modules(leavesOf(root.get()));
    // A, the gap, B.
    EXPECT_EQ(bars, "101100100101001001011");
}

TEST(ITF14, BearerFrame) {
    StrategyITF14 strategy;
    auto root = build(strategy, L"11234567890125", 3);
    const auto leaves = leavesOf(root.get());
    ASSERT_GE(leaves.size(), 4u);
    for (const Leaf& bearer : {leaves.front(), leaves[leaves.size() - 2]}) {
        EXPECT_EQ(bearer.kind, '1');
        EXPECT_EQ(bearer.modules, 134u);
        EXPECT_TRUE(bearer.control);
        EXPECT_TRUE(bearer.last);
    }
    const std::string symbol = modules(leaves);
    ASSERT_EQ(symbol.size(), 134u);
    // Bearer, quiet zone and start; stop, quiet zone and bearer.
    EXPECT_EQ(symbol.substr(0, 18), "111100000000001010");
    EXPECT_EQ(symbol.substr(116), "110100000000001111");
    EXPECT_EQ(leaves.back().modules, 134u);
    EXPECT_EQ(leaves.back().text, L"11234567890125");

    struct Size {
        unsigned width, height, fontSize;
        unsigned moduleWidth, bars, bearers;
    } sizes[] = {
        {268, 100, 10, 2, 100 - 10 - 16, 8},
        {401, 100, 0, 2, 100 - 16, 8},
        {402, 60, 10, 3, 60 - 10 - 24, 12},
        // Too low for the frame and the bars: the bearers keep their height.
        {268, 25, 10, 2, 0, 8},
    };
    for (const Size& s : sizes) {
        size(strategy, root.get(), s.width, s.height, s.fontSize);
        for (const Leaf& leaf : leavesOf(root.get())) {
            EXPECT_EQ(leaf.scaleX, s.moduleWidth);
            const unsigned height = leaf.kind == 'T' ? s.fontSize
                                    : leaf.control   ? s.bearers
                                                     : s.bars;
            EXPECT_EQ(leaf.height, height) << s.width << "x" << s.height;
        }
    }
}

TEST(OneRowSizing, BarsTakeTheCanvasLessTheText) {
    const Make strategies[] = {make<StrategyStandard2of5>(), make<StrategyInterleaved2of5>(),
                               make<StrategyCodaBar>(), make<StrategyCode93>(),
                               make<StrategyCode39Ext>()};
    for (const Make& m : strategies) {
        auto strategy = m();
        auto root = build(*strategy, strategy->getRawDemoValue());
        const unsigned width = root->getMinWidth();
        for (unsigned fontSize : {0u, 12u}) {
            size(*strategy, root.get(), 3 * width + 2, 80, fontSize);
            for (const Leaf& leaf : leavesOf(root.get())) {
                EXPECT_EQ(leaf.scaleX, 3u);
                EXPECT_EQ(leaf.height, leaf.kind == 'T' ? fontSize : 80 - fontSize);
            }
            EXPECT_EQ(root->getHeight(), 80u);
        }
    }
}

TEST(EanAddOn, ThreeRows) {
    struct Case {
        Make strategy;
        const wchar_t* raw;
        int textAlign;
        std::string addOn;  // the add-on's modules, from the published number sets
        const wchar_t* texts;
    } cases[] = {
        // 34 mod 4 = 2: start, 3 from set B, separator, 4 from set A.
        {make<StrategyEAN13AddOn2>(), L"123456789012834", 4, "10110100001010100011",
         L"34|1|234567|890128"},
        {make<StrategyEAN13AddOn2>(), L"123456789012834", 0, "10110100001010100011",
         L"34|123456789012834"},
        // 3 + 18 + 9 + 36 + 15 = 81, row 1: 1 from B, 2 from A, 3 from B, 4 and 5 from A.
        {make<StrategyEAN13AddOn5>(), L"123456789012812345", 5,
         "10110110011010010011010100001010100011010110001", L"12345|1|234567|89012|8"},
        // Row 0: two zeros from B, three from A.
        {make<StrategyEAN13AddOn5>(), L"400638133393100000", 6,
         "10110100111010100111010001101010001101010001101", L"00000|4006381|333931"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(c.raw)) + " layout " +
                     std::to_string(c.textAlign));
        auto strategy = c.strategy();
        auto root = build(*strategy, c.raw, c.textAlign);
        const bool margins = c.textAlign == 4 || c.textAlign == 5;
        const unsigned width = (margins ? 7 : 0) + 95 + 7 + c.addOn.size();
        ASSERT_EQ(root->getMinWidth(), width);

        const auto leaves = leavesOf(root.get());
        const auto upper = [](const Leaf& l) { return l.customData == 1; };
        const auto lower = [](const Leaf& l) { return l.customData == 2; };
        const auto guards = [](const Leaf& l) { return l.control; };
        const std::string bars = modules(leaves, lower);
        EXPECT_EQ(modules(leaves, upper), bars.substr(0, bars.size() - c.addOn.size()));
        EXPECT_EQ(bars.substr(bars.size() - c.addOn.size()), c.addOn);
        // The text row: edge, centre and edge guards in the layouts 4 to 6, the margin where no
        // digit stands in it, then the add-on's bars continued as they are.
        std::string guardRow = c.textAlign >= 4 ? "10101010101" : "";
        if (c.textAlign != 5) {
            guardRow += "0000000";
        }
        EXPECT_EQ(modules(leaves, guards), guardRow + c.addOn);
        EXPECT_TRUE(leaves.back().control && leaves.back().last);

        EXPECT_EQ(textsOf(leaves), c.texts);
        for (const Leaf& leaf : leaves) {
            if (leaf.kind == 'T' && leaf.customData == 1) {
                EXPECT_EQ(leaf.modules, c.addOn.size());
            }
        }

        size(*strategy, root.get(), 2 * width, 100, 10, 40);
        for (const Leaf& leaf : leavesOf(root.get())) {
            const unsigned height = leaf.kind == 'T'       ? 10
                                    : leaf.control         ? 4
                                    : leaf.customData == 1 ? 10
                                                           : 100 - 20;
            EXPECT_EQ(leaf.height, height);
            EXPECT_EQ(leaf.scaleX, 2u);
        }
        EXPECT_EQ(root->getHeight(), 100u);
        // Without text, the rows of text vanish and the bars take the whole height.
        size(*strategy, root.get(), width, 100, 0, 40);
        EXPECT_EQ(root->getHeight(), 100u);
        EXPECT_EQ(root->getWidth(), width);
    }
}

TEST(EanAddOn, CodeText) {
    StrategyEAN13AddOn2 strategy;
    // Only a text of the full length replaces the digits.
    for (const std::wstring given : {L"ABCDEFGHIJKLMNO", L"ABCDEFGHIJKLM"}) {
        std::wstring codeText = given;
        AbstractBarcodeElement* root = nullptr;
        ASSERT_TRUE(strategy.generate(L"123456789012834", &root, 0, 0, true, 1, 1, 1, 0, codeText));
        std::unique_ptr<AbstractBarcodeElement> owner(root);
        const std::wstring expected = given.size() == 15 ? given : L"123456789012834";
        EXPECT_EQ(codeText, expected);
        EXPECT_EQ(textsOf(leavesOf(root)).substr(0, 3), expected.substr(13) + L"|");
    }
}

}  // namespace
