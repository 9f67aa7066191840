#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/databar/gs1_databar_exp_stack_drawer.h"
#include "BarcodeLib/databar/gs1_databar_exp_stack_sizes_calculator.h"
#include "BarcodeLib/databar/gs1_databar_exp_stack_symbol_signs_maker.h"
#include "BarcodeLib/databar/strategy_gs1_databar_expanded_stacked.h"
#include "tests/support/tree_checks.h"

using namespace BarcodeVelko;

namespace {

// The grid of n data characters, all of value 0, in rows rows.
GS1DatabarExpStackDrawStructure grid(int n, int rows) {
    const GS1DatabarExpStackSymbolSignsMaker maker;
    std::vector<GS1DatabarExpStackSign> signs;
    GS1DatabarExpStackSign check;
    std::vector<int> elements;
    int count = 0;
    const std::string binary(static_cast<size_t>(12 * n), '0');
    EXPECT_TRUE(maker.MakeDataSymbolSigns(binary, signs, count));
    EXPECT_TRUE(maker.MakeCheckSymbolSign(binary, count, signs, check));
    maker.MakeBarcodeElements(signs, count, check, elements);
    return GS1DatabarExpStackDrawer().BuildGS1DatabarExpStackDrawStructure(elements, count, rows);
}

// Cells of one grid row as text: '1' bar, '0' space, '.' nothing; kinds as 'd' data, 's'
// separator, '.' nothing.
std::string cells(const GS1DatabarExpStackDrawStructure& structure, int row, bool kinds = false) {
    std::string text;
    for (int x = 0; x < structure.GetColumnCount(); ++x) {
        const GS1DatabarExpStackDrawModule& m = structure.GetModule(row, x);
        text += m.kind == 0 ? '.' : kinds ? (m.kind == 1 ? 'd' : 's') : (m.isBar ? '1' : '0');
    }
    return text;
}

}  // namespace

TEST(GS1DatabarExpStackSizes, RowsAndModuleFollowThePicture) {
    const struct {
        const char* note;
        int method, width, height, n, rows;
        bool ok;
        int expectedRows, textRows, moduleSize;
    } cases[] = {
        {"demo in 150 x 100: 2 rows and 1 row tie at 1, the more rows stay", CALC_AUTO, 150, 100, 3,
         0, true, 2, 1, 1},
        {"more rows than blocks", CALC_FIXED_ROW_COUNT, 150, 100, 3, 50, true, 0, 1, 0},
        {"no row count", CALC_FIXED_ROW_COUNT, 150, 100, 3, 0, true, 0, 1, 0},
        {"narrower than one block", CALC_AUTO, 52, 100, 3, 0, false, 0, 0, 0},
        {"lower than one row", CALC_AUTO, 150, 33, 3, 0, false, 0, 0, 0},
        {"one row 102 wide, 34 high, below 35", CALC_FIXED_ROW_COUNT, 102, 35, 3, 1, true, 1, 1, 1},
        {"the symbol must stay lower than the picture", CALC_FIXED_ROW_COUNT, 102, 34, 3, 1, true,
         0, 1, 0},
        {"99 modules still fit: no answer", CALC_FIXED_ROW_COUNT, 20000, 20000, 3, 1, true, 0, 1,
         0},
        {"11 blocks in 300 x 900: 11 rows at 2 pixels", CALC_AUTO, 300, 900, 21, 0, true, 11, 5, 2},
        {"simple: one row at 1, two rows don't fit at 2", CALC_SIMPLE_NO_TEXT, 150, 100, 3, 0, true,
         1, 1, 1},
        {"math: 2 columns, 1 row", CALC_MATH, 150, 100, 3, 0, true, 1, 1, 1},
    };
    for (const auto& c : cases) {
        int rows = c.rows, textRows = 0, moduleSize = 0;
        EXPECT_EQ(GS1DatabarExpStackSizesCalculator().CalcSizes(c.method, c.width, c.height, c.n,
                                                                rows, textRows, moduleSize),
                  c.ok)
            << c.note;
        if (c.ok) {
            EXPECT_EQ(rows, c.expectedRows) << c.note;
            EXPECT_EQ(moduleSize, c.moduleSize) << c.note;
            if (rows > 0) {
                EXPECT_EQ(textRows, c.textRows) << c.note;
            }
        }
    }
}

TEST(GS1DatabarExpStackDrawer, RowsSeparatorsAndGuards) {
    // 9 data characters, 5 blocks, in 4 rows: 2 blocks a row, so the blocks end after row 3 and
    // a separator row hangs below it.
    const auto hanging = grid(9, 4);
    EXPECT_EQ(hanging.GetRowCount(), 10);
    EXPECT_EQ(cells(hanging, 8, true).substr(0, 53), std::string(53, 'd'));
    EXPECT_EQ(cells(hanging, 9, true).substr(0, 49), std::string(49, 's'));
    // The middle separator: 4 light modules, then light and dark in turn.
    EXPECT_EQ(cells(hanging, 2).substr(0, 12), "000001010101");
    // A separator row is the data row's inverse beyond the edges, where no finder is in the way.
    const std::string data = cells(hanging, 0), below = cells(hanging, 1);
    for (int x = 4; x < 17; ++x) {
        EXPECT_NE(data[x], below[x]) << x;
    }

    // 5 characters, 3 blocks, in 2 rows: the last row holds 1 block of 2, is even and is the
    // last one asked for: it opens with 2 light modules.
    const auto special = grid(5, 2);
    EXPECT_EQ(cells(special, 0).substr(0, 2), "01");
    EXPECT_EQ(cells(special, 4).substr(0, 3), "001");

    // One row: an even number of data characters leaves the last block without its right
    // character, and the row takes the list's closing guard and its own.
    EXPECT_EQ(grid(4, 1).GetColumnCount(), 2 + 17 + 15 + 17 + 17 + 15 + 17 + 17 + 15 + 4);
    EXPECT_EQ(grid(5, 1).GetColumnCount(), 49 * 3 + 4);
    EXPECT_EQ(cells(grid(4, 1), 0).substr(132), "1010");
}

TEST(StrategyGS1DatabarExpandedStacked, TextLinesTakeWholeElements) {
    const struct {
        std::wstring text;
        int rows;
        std::vector<std::wstring> lines;
    } cases[] = {
        {L"(01)04600822901507(11)161109", 1, {L"(01)04600822901507(11)161109"}},
        {L"(01)04600822901507(11)161109", 2, {L"(01)04600822901507", L"(11)161109"}},
        {L"(10)1(21)2(30)3", 2, {L"(10)1(21)2", L"(30)3"}},
        {L"ABCDEF", 2, {L"ABC", L"DEF"}},
        {L"ABCDE", 3, {L"AB", L"CD", L"E"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(StrategyGS1DatabarExpandedStacked::SplitText(c.text, c.rows), c.lines)
            << VelkoTest::narrow(c.text) << " on " << c.rows;
    }
}
