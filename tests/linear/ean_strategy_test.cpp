#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/strategy_code128.h"
#include "BarcodeLib/linear/strategy_ean13.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "tests/support/tree_checks.h"

using BarcodeVelko::AbstractBarcodeElement;
using BarcodeVelko::AbstractBarcodeStrategy;
using BarcodeVelko::StrategyCode128;
using BarcodeVelko::StrategyEAN13;
using BarcodeVelko::StrategyEAN8;
using VelkoTest::Leaf;

namespace {

StrategyEAN13 ean13;
StrategyEAN8 ean8;

std::unique_ptr<AbstractBarcodeElement> build(AbstractBarcodeStrategy& strategy, int textAlign,
                                              bool showCS, std::wstring& codeText) {
    return VelkoTest::build(strategy, strategy.getRawDemoValue(), textAlign, &codeText, showCS);
}

TEST(EanTables, SetsFollowFromEachOther) {
    for (int digit = 0; digit < 10; ++digit) {
        std::string odd = StrategyEAN8::g_aszEAN8TableLeftOdd[digit];
        std::string right = StrategyEAN8::g_aszEAN8TableRightAny[digit];
        EXPECT_EQ(std::count(odd.begin(), odd.end(), '1') % 2, 1) << digit;
        std::transform(odd.begin(), odd.end(), odd.begin(), [](char c) { return c ^ 1; });
        EXPECT_EQ(right, odd) << digit;
        EXPECT_EQ(StrategyEAN8::g_aszEAN8TableLeftEven[digit],
                  std::string(right.rbegin(), right.rend()));
        const unsigned char* parity = StrategyEAN13::g_abParity[digit];
        EXPECT_EQ(std::count(parity, parity + 5, 1), digit == 0 ? 0 : 3) << digit;
    }
}

TEST(EanGenerate, ALayoutOutsideZeroToSixIsAWrongValue) {
    std::wstring codeText;
    AbstractBarcodeElement* root = nullptr;
    EXPECT_THROW(ean8.generate(L"x", &root, 7, 0, true, 0, 0, 0, 0, codeText),
                 BarcodeException::TextAlignWrongValue);
}

struct LayoutCase {
    AbstractBarcodeStrategy* strategy;
    int textAlign;
    bool showCS;
    size_t modules;
    const char* textRow;
};

class EanLayout : public testing::TestWithParam<LayoutCase> {};

TEST_P(EanLayout, TextRowStandsUnderItsBars) {
    const LayoutCase& c = GetParam();
    std::wstring codeText;
    const auto root = build(*c.strategy, c.textAlign, c.showCS, codeText);
    EXPECT_EQ(codeText, c.strategy->getRawDemoValue());
    const std::vector<Leaf> leaves = VelkoTest::leavesOf(root.get());
    const std::string bars = VelkoTest::modules(leaves);
    EXPECT_EQ(bars.size(), c.modules);
    EXPECT_EQ(root->getMinWidth(), c.modules);
    EXPECT_EQ(VelkoTest::textRowOf(leaves), c.textRow);

    // Every guard of the text row continues the same run of the bars above it.
    size_t x = 0;
    bool inTextRow = false;
    for (const Leaf& leaf : leaves) {
        inTextRow = inTextRow || leaf.kind == 'T' || leaf.control;
        if (inTextRow && leaf.control) {
            EXPECT_EQ(bars.substr(x, leaf.modules), std::string(leaf.modules, leaf.kind));
        }
        x += inTextRow ? leaf.modules : 0;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, EanLayout,
    testing::Values(
        LayoutCase{&ean13, 0, true, 95, "T95:1234567890128"},
        LayoutCase{&ean13, 3, false, 95, "T95:123456789012"},
        LayoutCase{&ean13, 4, true, 109, "T7:1|101|T42:234567|01010|T42:890128|101"},
        LayoutCase{&ean13, 4, false, 109, "T7:1|101|T42:234567|01010|T42:89012|101"},
        LayoutCase{&ean13, 5, true, 109, "T7:1|101|T42:234567|01010|T42:89012|101|T7:8"},
        LayoutCase{&ean13, 5, false, 109, "T7:1|101|T42:23456|01010|T42:78901|101|T7:2"},
        LayoutCase{&ean13, 6, true, 95, "101|T42:1234567|01010|T42:890128|101"},
        LayoutCase{&ean13, 6, false, 95, "101|T42:123456|01010|T42:789012|101"},
        LayoutCase{&ean8, 1, true, 67, "T66:01234565"},
        LayoutCase{&ean8, 2, false, 67, "T66:0123456"},
        LayoutCase{&ean8, 4, true, 81, "T7:0|101|T28:123|01010|T28:4565|101"},
        LayoutCase{&ean8, 4, false, 81, "T7:0|101|T28:123|01010|T28:456|101"},
        LayoutCase{&ean8, 5, true, 81, "T7:0|101|T28:123|01010|T28:456|101|T7:5"},
        LayoutCase{&ean8, 5, false, 81, "T7:0|101|T28:123|01010|T28:45|101|T7:6"},
        LayoutCase{&ean8, 6, true, 67, "101|T28:0123|01010|T28:4565|101"},
        LayoutCase{&ean8, 6, false, 67, "101|T28:0123|01010|T28:4565|101"}));

TEST(EanText, OnlyAGivenTextOfTheRightLengthStands) {
    struct Case {
        AbstractBarcodeStrategy* strategy;
        int textAlign;
        const wchar_t* given;
        const wchar_t* kept;
        const char* textRow;
    } cases[] = {
        {&ean13, 4, L"ABCDEFGHIJKLM", L"ABCDEFGHIJKLM", "T7:A|101|T42:BCDEFG|01010|T42:HIJKLM|101"},
        {&ean13, 4, L"ABCDEFGHIJKL", L"1234567890128", "T7:1|101|T42:234567|01010|T42:890128|101"},
        {&ean8, 6, L"ABCDEFGHI", L"01234565", "101|T28:0123|01010|T28:4565|101"},
        // The outer digits of this layout come from the symbol itself.
        {&ean8, 5, L"ABCDEFGH", L"ABCDEFGH", "T7:0|101|T28:BCD|01010|T28:EFG|101|T7:5"},
    };
    for (const Case& c : cases) {
        std::wstring codeText = c.given;
        const auto root = build(*c.strategy, c.textAlign, true, codeText);
        EXPECT_EQ(codeText, c.kept);
        EXPECT_EQ(VelkoTest::textRowOf(VelkoTest::leavesOf(root.get())), c.textRow);
    }
}

TEST(EanSize, GuardBarsReachIntoTheTextRow) {
    struct Case {
        unsigned fontSize, sentinel, barHeight, guardHeight;
    } cases[] = {
        {10, 30, 90, 3}, {10, 0, 90, 0}, {10, 100, 90, 10}, {0, 30, 100, 0}, {15, 50, 85, 7}};
    for (const Case& c : cases) {
        std::wstring codeText;
        const auto root = build(ean13, 4, true, codeText);
        VelkoTest::sizeTree(ean13, root.get(), 150, 100, c.fontSize, c.sentinel);
        EXPECT_EQ(root->getWidth(), 109u);
        EXPECT_EQ(root->getHeight(), 100u);
        for (const Leaf& leaf : VelkoTest::leavesOf(root.get())) {
            EXPECT_EQ(leaf.height, leaf.kind == 'T' ? c.fontSize
                                   : leaf.control   ? c.guardHeight
                                                    : c.barHeight);
        }
    }
}

TEST(Code128Values, LatchOnlySetChoice) {
    const std::pair<std::wstring, std::vector<unsigned>> cases[] = {
        {L"A", {103, 33, 33, 106}},
        {L"1234", {105, 12, 34, 82, 106}},
        {L"12345", {105, 12, 34, 101, 21, 57, 106}},
        {L"ab12cd", {104, 65, 66, 99, 12, 100, 67, 68, 67, 106}},
        {L"Code128 example",
         {103, 35, 100, 79, 68, 69, 99, 12, 101, 24, 0, 100, 69, 88, 65, 77, 80, 76, 69, 0, 106}},
        {L"12", {105, 12, 14, 106}},
        // After the digits a blank goes on in A, although the symbol was in B before them.
        {L"ab12 ", {104, 65, 66, 99, 12, 101, 0, 18, 106}},
        // DEL lies in B; a control character amid lower case costs two latches.
        {L"\x7f", {104, 95, 96, 106}},
        {L"a\tb", {104, 65, 101, 73, 100, 66, 84, 106}},
    };
    StrategyCode128 strategy;
    for (const auto& [input, values] : cases) {
        EXPECT_EQ(strategy.symbolValues(input.c_str()), values);
    }
}

TEST(Code128Tree, RefusesWithoutATree) {
    StrategyCode128 strategy;
    for (const wchar_t* input : {L"", L"\x80", L"abc\xff", L"\x41f\x440\x438"}) {
        std::wstring check;
        EXPECT_FALSE(strategy.calcCheckSymbol(input, check));
        EXPECT_TRUE(VelkoTest::refuses(strategy, input, 3));
        EXPECT_TRUE(strategy.symbolValues(input).empty());
    }
    EXPECT_THROW(strategy.encodeAs(L'\x80', 0), BarcodeException::Unexpected);
    BarcodeVelko::BarcodeRow row;
    EXPECT_THROW(StrategyCode128::encodeValue(108, &row, false), BarcodeException::Unexpected);
}

}  // namespace
