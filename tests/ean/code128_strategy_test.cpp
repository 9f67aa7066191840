#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_row.h"
#include "BarcodeLib/strategy_code128.h"
#include "tests/ean/tree_rows.h"

using BarcodeVelko::AbstractBarcodeElement;
using BarcodeVelko::StrategyCode128;
using EanTest::Leaf;

namespace {

TEST(Code128Table, PatternsAreWellFormed) {
    std::set<std::string> seen;
    for (int value = 0; value < 106; ++value) {
        const std::string pattern = StrategyCode128::g_aszCode128Table[value];
        ASSERT_EQ(pattern.size(), 11u) << value;
        // Three bars and three spaces, from a bar, with an even count of dark modules.
        int runs = 1;
        for (size_t i = 1; i < pattern.size(); ++i) {
            runs += pattern[i] != pattern[i - 1];
        }
        EXPECT_TRUE(pattern[0] == '1' && runs == 6) << value;
        EXPECT_EQ(std::count(pattern.begin(), pattern.end(), '1') % 2, 0) << value;
        EXPECT_TRUE(seen.insert(pattern).second) << value;
    }
    EXPECT_STREQ(StrategyCode128::g_aszCode128Table[106], "1100011101011");
    EXPECT_STREQ(StrategyCode128::g_aszCode128Table[107], "00000000000");
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

TEST(Code128Tree, BarsFollowTheValues) {
    StrategyCode128 strategy;
    std::wstring codeText;
    AbstractBarcodeElement* raw = nullptr;
    ASSERT_TRUE(strategy.generate(L"ab12cd", &raw, 3, 0, true, 150, 100, 1, 0, codeText));
    const std::unique_ptr<AbstractBarcodeElement> root(raw);
    EXPECT_EQ(codeText, L"ab12cd");

    std::string expected;
    for (unsigned value : strategy.symbolValues(L"ab12cd")) {
        expected += StrategyCode128::g_aszCode128Table[value];
    }
    const std::vector<Leaf> leaves = EanTest::leavesOf(root.get());
    EXPECT_EQ(EanTest::barsOf(leaves), expected);
    EXPECT_EQ(root->getMinWidth(), 112u);
    EXPECT_EQ(EanTest::textRowOf(leaves), "T110:ab12cd");
    EXPECT_TRUE(std::none_of(leaves.begin(), leaves.end(),
                             [](const Leaf& leaf) { return leaf.last || leaf.control; }));
}

TEST(Code128Tree, RefusesWithoutATree) {
    StrategyCode128 strategy;
    for (const wchar_t* input : {L"", L"\x80", L"abc\xff", L"\x41f\x440\x438"}) {
        BarcodeVelko::BarcodeRow stale;
        AbstractBarcodeElement* root = &stale;
        std::wstring codeText = L"kept";
        std::wstring check;
        EXPECT_FALSE(strategy.calcCheckSymbol(input, check));
        EXPECT_FALSE(strategy.generate(input, &root, 3, 0, true, 150, 100, 1, 0, codeText));
        EXPECT_EQ(root, nullptr);
        EXPECT_EQ(codeText, L"kept");
        EXPECT_TRUE(strategy.symbolValues(input).empty());
    }
    EXPECT_THROW(strategy.encodeAs(L'\x80', 0), BarcodeException::Unexpected);
    BarcodeVelko::BarcodeRow row;
    EXPECT_THROW(StrategyCode128::encodeValue(108, &row, false), BarcodeException::Unexpected);
}

}  // namespace
