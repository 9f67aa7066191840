#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/datamatrix/strategy_data_matrix.h"
#include "BarcodeLib/datamatrix/visitor_data_matrix.h"
#include "BarcodeLib/errors/barcode_exception.h"
#include "tests/support/tree_checks.h"

using namespace BarcodeVelko;

namespace {

// The symbol as lines of '1' dark and '0' light, top first; empty if refused. A stale codeText
// must come back empty either way.
std::vector<std::string> matrixOf(StrategyDataMatrix& strategy, const std::wstring& text) {
    AbstractBarcodeElement* element = nullptr;
    std::wstring codeText = L"stale text";
    const bool ok = strategy.generate(text.c_str(), &element, 0, 0, true, 150, 150, 1, 0, codeText);
    const std::unique_ptr<AbstractBarcodeElement> root(element);
    EXPECT_TRUE(codeText.empty());
    EXPECT_EQ(ok, root != nullptr);
    std::vector<std::string> lines;
    if (!root) {
        return lines;
    }
    const auto leaves = VelkoTest::leavesOf(root.get());
    for (const VelkoTest::Leaf& leaf : leaves) {
        EXPECT_TRUE(leaf.kind != 'T' && !leaf.control && !leaf.last && leaf.customData == 0);
    }
    const std::string all = VelkoTest::modules(leaves, [](const VelkoTest::Leaf&) { return true; });
    const size_t side = root->getMinWidth();
    EXPECT_EQ(root->getMinHeight(), side);
    for (size_t at = 0; at < all.size(); at += side) {
        lines.push_back(all.substr(at, side));
    }
    EXPECT_EQ(lines.size(), side);
    return lines;
}

std::vector<std::string> matrixOf(int scheme, const std::wstring& text) {
    StrategyDataMatrix strategy(scheme);
    return matrixOf(strategy, text);
}

}  // namespace

TEST(StrategyDataMatrix, EachSchemeGivesItsOwnSymbol) {
    for (const wchar_t* text : {L"HELLO WORLD 12345", L"ABCDEFGH"}) {
        std::vector<std::vector<std::string>> seen;
        for (int scheme = 0; scheme < 6; ++scheme) {
            seen.push_back(matrixOf(scheme, text));
            ASSERT_FALSE(seen.back().empty()) << scheme;
            for (int other = 0; other < scheme; ++other) {
                EXPECT_NE(seen[other], seen.back()) << "schemes " << other << ", " << scheme;
            }
        }
    }
}

// The facade makes a strategy per trial; one used again must still draw each text, refused
// ones between them included, and leak nothing.
TEST(StrategyDataMatrix, OneObjectEncodesAgain) {
    for (int scheme = 0; scheme < StrategyDataMatrix::kSchemeCount; ++scheme) {
        StrategyDataMatrix strategy(scheme);
        for (const wchar_t* text : {strategy.getDemoValue(), L"lower case", L"", L"12345"}) {
            EXPECT_EQ(matrixOf(strategy, text), matrixOf(scheme, text)) << scheme;
        }
    }
}

// 232 is FNC1 only in the GS1 scheme; blanks are no element string and leave nothing to encode.
TEST(StrategyDataMatrix, OnlyTheGS1SchemeHasFnc1) {
    EXPECT_NE(matrixOf(6, L"\u8a9e"), matrixOf(0, L"\u8a9e"));  // E8 AA 9E in UTF-8
    EXPECT_TRUE(matrixOf(6, L"   ").empty());
}

TEST(StrategyDataMatrix, BrokenCallsThrow) {
    EXPECT_EQ(VelkoTest::thrownCode([] { StrategyDataMatrix bad(-1); }), 0x8000FFFFu);
    EXPECT_EQ(VelkoTest::thrownCode([] { StrategyDataMatrix bad(7); }), 0x8000FFFFu);
    StrategyDataMatrix strategy(3);
    EXPECT_THROW(strategy.setScheme(7), BarcodeException::Unexpected);
    EXPECT_EQ(strategy.scheme(), 3);
    VisitorDataMatrix visitor(100, 100, 10, 10);
    EXPECT_THROW(visitor.visit(static_cast<BarcodeBar*>(nullptr)), BarcodeException::Unexpected);
}
