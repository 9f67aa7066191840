#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/strategy_ean128.h"
#include "BarcodeLib/ucc_tree_context.h"
#include "tests/support/tree_checks.h"

using BarcodeVelko::StrategyCode128;
using BarcodeVelko::StrategyEAN128;
using BarcodeVelko::UCCTreeContext;

namespace {

constexpr wchar_t F = StrategyEAN128::kFNC1;

TEST(EAN128, TranslationPutsFNC1AndGSForTheMarkers) {
    const struct {
        std::wstring value;
        std::wstring code;
        std::wstring text;
    } cases[] = {
        {L"(11)040509(20)12",
         {F, L'1', L'1', L'0', L'4', L'0', L'5', L'0', L'9', L'2', L'0', L'1', L'2'},
         L"(11)040509(20)12"},
        {L"(10)ABC(21)123", {F, 49, 48, 65, 66, 67, 29, 50, 49, 49, 50, 51}, L"(10)ABC(21)123"},
        // Already raw: the markers go, the digits are shown.
        {L"{FMC1}0104600822901507", std::wstring(1, F) + L"0104600822901507", L"0104600822901507"},
        {L"{FMC1}10A{GS1}21B", {F, L'1', L'0', L'A', 29, L'2', L'1', L'B'}, L"10A21B"},
        // Character 232 is FNC1 wherever it stands.
        {L"\xe8"
         L"10A\xe8"
         L"B",
         {F, L'1', L'0', L'A', F, L'B'},
         L"\xe8"
         L"10A\xe8"
         L"B"},
        // Refused element strings and plain text stay as they are.
        {L"ABC", L"ABC", L"ABC"},
        {L" (01)1234", L" (01)1234", L" (01)1234"},
    };
    StrategyEAN128 strategy;
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.value));
        std::wstring code = L"stale";
        std::wstring text = L"stale";
        EXPECT_TRUE(strategy.translateRaw(c.value.c_str(), code, text));
        EXPECT_EQ(code, c.code);
        EXPECT_EQ(text, c.text);
    }
}

TEST(EAN128, SymbolValues) {
    const struct {
        const wchar_t* value;
        std::vector<unsigned> values;
    } cases[] = {
        // Start A for FNC1 before a digit pair, then set C.
        {L"(11)040509(20)12", {103, 102, 99, 11, 4, 5, 9, 20, 12, 46, 106}},
        // The separator is GS in set A, value 93.
        {L"(10)ABC(21)123", {103, 102, 99, 10, 101, 33, 34, 35, 93, 99, 21, 12, 101, 19, 46, 106}},
        {L"{FMC1}0104600822901507", {103, 102, 99, 1, 4, 60, 8, 22, 90, 15, 7, 98, 106}},
        // In set C a following FNC1 goes back to A first.
        {L"\xe8"
         L"12\xe8"
         L"34",
         {103, 102, 99, 12, 101, 102, 99, 34, 22, 106}},
        // FNC1 takes the set of what follows it.
        {L"\xe8"
         L"ab",
         {104, 102, 65, 66, 19, 106}},
    };
    StrategyEAN128 strategy;
    for (const auto& c : cases) {
        EXPECT_EQ(strategy.symbolValues(c.value), c.values) << VelkoTest::narrow(c.value);
    }
}

TEST(EAN128, RefusedElementStringsAreCode128) {
    StrategyEAN128 ean128;
    StrategyCode128 code128;
    for (const wchar_t* value : {L"ABC", L"(01)1234", L"(7030)123", L"(01)04600822901507(9999)1",
                                 L"(10)123456789012345678901", L"Hello (world)"}) {
        SCOPED_TRACE(VelkoTest::narrow(value));
        EXPECT_EQ(ean128.symbolValues(value), code128.symbolValues(value));
        std::wstring text;
        const auto root = VelkoTest::build(ean128, value, 3, &text);
        EXPECT_EQ(text, value);
        const auto plain = VelkoTest::build(code128, value, 3);
        EXPECT_EQ(VelkoTest::modules(VelkoTest::leavesOf(root.get())),
                  VelkoTest::modules(VelkoTest::leavesOf(plain.get())));
    }
}

TEST(EAN128, TreeShowsTheValueWithoutMarkers) {
    const struct {
        std::wstring value;
        std::wstring codeText;  // as the user set it
        std::string shown;
    } cases[] = {
        {L"(11)040509(20)12", L"", "T121:(11)040509(20)12"},
        {L"{FMC1}2012", L"", "T77:2012"},
        {L"(11)040509(20)12", L"Lot 12", "T121:Lot 12"},
    };
    StrategyEAN128 strategy;
    for (const auto& c : cases) {
        std::wstring codeText = c.codeText;
        const auto root = VelkoTest::build(strategy, c.value, 3, &codeText);
        ASSERT_TRUE(root);
        const auto leaves = VelkoTest::leavesOf(root.get());
        EXPECT_EQ(VelkoTest::textRowOf(leaves), c.shown);
        std::string bars;
        for (unsigned value : strategy.symbolValues(c.value.c_str())) {
            bars += StrategyCode128::g_aszCode128Table[value];
        }
        EXPECT_EQ(VelkoTest::modules(leaves), bars);
    }
}

TEST(EAN128, NothingToEncode) {
    StrategyEAN128 strategy;
    for (const wchar_t* value : {L"", L"   ", L"\t"}) {
        std::wstring check = L"?";
        EXPECT_FALSE(strategy.checkRaw(value));
        EXPECT_FALSE(strategy.calcCheckSymbol(value, check));
        EXPECT_TRUE(VelkoTest::refuses(strategy, value, 3));
    }
    std::wstring check = L"?";
    EXPECT_TRUE(strategy.calcCheckSymbol(L"(20)12", check));
    EXPECT_EQ(check, L"");
    std::wstring code, text;
    EXPECT_THROW(strategy.translateRaw(nullptr, code, text), BarcodeException::Unexpected);
    // A character Code 128 lacks passes the check and stops the generation.
    EXPECT_TRUE(strategy.checkRaw(L"(10)\x416"));
    EXPECT_EQ(VelkoTest::thrownCode([&] { VelkoTest::refuses(strategy, L"(10)\x416"); }),
              BarcodeException::kUnexpectedCode);
    EXPECT_EQ(VelkoTest::thrownCode([&] {
                  std::wstring codeText;
                  strategy.generate(L"(20)12", nullptr, 3, 0, true, 150, 100, 1, 0, codeText);
              }),
              BarcodeException::kUnexpectedCode);
    EXPECT_EQ(std::wstring(strategy.getRawDemoValue()), L"(11)040509(20)12");
    EXPECT_EQ(strategy.getDefaultTextAlign(), 3u);
}

TEST(UCCTreeContext, CursorMovesAndRefusesMisuse) {
    UCCTreeContext context(L"(01)12");
    EXPECT_TRUE(context.trySequence(L"(01)"));
    EXPECT_FALSE(context.trySequence(L"123"));
    EXPECT_EQ(context.getPos(), 4u);
    EXPECT_EQ(context.charsLeft(), 2u);
    EXPECT_EQ(context.get(), L'1');
    context.unget(1);
    EXPECT_EQ(context.get(2), L"12");
    EXPECT_EQ(context.charsLeft(), 0u);
    context.setPos(5);
    EXPECT_EQ(context.get(), L'2');

    const unsigned unexpected = BarcodeException::kUnexpectedCode;
    const unsigned outOfMemory = BarcodeException::kOutOfMemoryCode;
    const struct {
        std::function<void()> action;
        unsigned code;
    } misuses[] = {
        {[] { UCCTreeContext c(nullptr); }, unexpected},
        {[] { UCCTreeContext c(L""); }, unexpected},
        {[&] { context.get(); }, unexpected},
        {[&] { context.setPos(6); }, unexpected},
        {[&] { context.get(0); }, unexpected},
        {[&] { context.unget(7); }, unexpected},
        {[&] { context.unget(0); }, unexpected},
        {[&] { context.trySequence(nullptr); }, unexpected},
        {[&] { context.trySequence(L""); }, outOfMemory},
    };
    for (const auto& misuse : misuses) {
        EXPECT_EQ(VelkoTest::thrownCode(misuse.action), misuse.code);
    }
}

}  // namespace
