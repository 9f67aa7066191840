#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BarcodeLib/databar/gs1_databar_exp_stack_binary_string_maker.h"
#include "BarcodeLib/databar/strategy_gs1_databar_expanded_stacked.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/dm2png32.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;

namespace {

constexpr unsigned kType = 17;
constexpr unsigned char kAutoRows = 100;

const std::wstring kDemo = L"(10)12A";
// 252 bits: 21 data characters in 11 blocks, the most a symbol holds.
const std::wstring kLongest =
    L"(01)04600822901507(11)161109(10)12345678901234567890(21)12345678901234567890(30)12";

struct Drawn {
    VelkoTest::Picture picture;
    PError error;
};

Drawn drawDataBar(const std::wstring& value, unsigned char rows, unsigned width, unsigned height) {
    BarcodeFacade2 facade;
    VelkoTest::setUp(facade, kType, width, height);
    facade.setGS1DatabarRowCount(rows);
    facade.setCodeValue(value.c_str());
    Drawn drawn{VelkoTest::render(facade), facade.getLastError()};
    return drawn;
}

// VelkoTest::scan asks zxing-cpp for a single result, which is what a stacked DataBar needs:
// zxing-cpp 1.4 asserts when asked for all results of one.
std::string scanDataBar(const Drawn& drawn) {
    EXPECT_EQ(drawn.error.code(), 0) << drawn.error.message().toStdString();
    return VelkoTest::scan(drawn.picture, ZXing::BarcodeFormat::DataBarExpanded);
}

// The data characters of a value's symbol, 0 if it has none.
int dataCharacters(const std::wstring& value) {
    std::string bytes, binary;
    std::wstring text;
    return StrategyGS1DatabarExpandedStacked::PrepareStrings(value.c_str(), bytes, text) &&
                   GS1DatabarExpStackBinaryStringMaker().BuildBinaryString(bytes, binary)
               ? static_cast<int>(binary.size() / 12)
               : 0;
}

// A value for each number of data characters from 3 to 21, in index n, from ever more digits.
std::vector<std::wstring> valuesByDataCharacters() {
    std::vector<std::wstring> values(22);
    const std::wstring digits = L"1234567890";
    for (size_t k = 1; k <= 90; ++k) {
        std::wstring number;
        for (size_t i = 0; i < k; ++i) {
            number += digits[i % digits.size()];
        }
        const std::wstring value =
            L"(90)" + number.substr(0, 30) + (k > 30 ? L"(91)" + number.substr(30) : L"");
        const int n = dataCharacters(value);
        if (n >= 3 && n <= 21 && values[static_cast<size_t>(n)].empty()) {
            values[static_cast<size_t>(n)] = value;
        }
    }
    return values;
}

}  // namespace

// Every symbol size in every row count it can be asked for, and as the automatic choice lays it
// out in pictures from wide to narrow: the last row short of the others, even or odd, mirrored
// or not, must keep its colours.
TEST(GS1DatabarExpandedStackedScan, EveryRowCountReads) {
    const std::vector<std::wstring> values = valuesByDataCharacters();
    const struct {
        unsigned width, height;
    } autoPictures[] = {{1200, 160},
                        {700, 330},
                        // These land on a last row short of the others: 10 blocks in 4 rows; 7 and
                        // 11 blocks in 6 rows; 11 blocks in 10 rows.
                        {310, 330},
                        {220, 500},
                        {220, 800}};
    for (int n = 3; n <= 21; ++n) {
        const std::wstring& value = values[static_cast<size_t>(n)];
        ASSERT_FALSE(value.empty()) << n << " data characters";
        const std::string expected = VelkoTest::narrow(value);
        const int blocks = (n + 2) / 2;
        for (int rows = 1; rows <= blocks; ++rows) {
            // Two pixels a module, set by the width; room below for the text lines.
            const int perRow = (blocks + rows - 1) / rows;
            const unsigned width = 2 * (49 * perRow + 4) + 20;
            const unsigned height = 2 * (37 * rows - 3) + 40 * (rows / 2 + 1) + 20;
            EXPECT_EQ(
                scanDataBar(drawDataBar(value, static_cast<unsigned char>(rows), width, height)),
                expected)
                << n << " data characters in " << rows << " rows";
        }
        for (const auto& picture : autoPictures) {
            EXPECT_EQ(scanDataBar(drawDataBar(value, kAutoRows, picture.width, picture.height)),
                      expected)
                << n << " data characters in " << picture.width << " x " << picture.height;
        }
    }
}

TEST(GS1DatabarExpandedStackedScan, ZXingReadsTheElementStringBack) {
    const struct {
        const char* note;
        std::wstring value;
        unsigned char rows;
        unsigned width, height;
    } cases[] = {
        {"compressed GTIN and general numeric", L"(01)04600822901507(11)161109", 2, 300, 200},
        {"numeric only, a lone last digit", L"(30)1234567", kAutoRows, 300, 200},
        {"alphanumeric with its punctuation", L"(10)ABC-123/X.Y*,Z", kAutoRows, 300, 300},
        {"ISO/IEC 646 punctuation", L"(21)a!\"%&'()*+,-./:;<=>(10)?_ xyz", 3, 400, 400},
        {"latches both ways, a separator in ISO/IEC 646", L"(10)AB12345678cd(21)X1", 2, 400, 300},
        // The separator returns to numeric: the next AI is a pair, then a latch to letters.
        {"a separator in alphanumeric", L"(10)AB(21)CD", 2, 400, 300},
        // The layouts of every row count are read in EveryRowCountReads.
        {"longest in one row", kLongest, 1, 1200, 200},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(scanDataBar(drawDataBar(c.value, c.rows, c.width, c.height)),
                  VelkoTest::narrow(c.value))
            << c.note;
    }
}

TEST(GS1DatabarExpandedStackedScan, RefusedValuesGiveTheErrorPicture) {
    const struct {
        const char* note;
        std::wstring value;
        unsigned char rows;
        unsigned width, height;
        int code;
    } cases[] = {
        {"a character without encoding", L"(10)AB#C", kAutoRows, 220, 100, 3},
        {"a letter within the GTIN", L"(01)0460082290150A", kAutoRows, 220, 100, 3},
        {"253 bits and more", kLongest + L"3", kAutoRows, 1200, 200, 3},
        {"a character beyond ASCII", L"(10)\u00e9", kAutoRows, 220, 100, 3},
        {"narrower than one block", kDemo, kAutoRows, 52, 100, 3},
        {"too low for one row", kDemo, kAutoRows, 220, 33, 3},
        {"more rows than blocks", kDemo, 3, 220, 300, 3},
        {"rows that don't fit even at one pixel", kLongest, 11, 120, 400, 3},
    };
    for (const auto& c : cases) {
        const Drawn drawn = drawDataBar(c.value, c.rows, c.width, c.height);
        EXPECT_EQ(drawn.error.code(), c.code) << c.note;
        EXPECT_EQ(drawn.error.message().toStdString(), "invalid barcode") << c.note;
        EXPECT_EQ(drawn.picture.width, 200u) << c.note;
        EXPECT_EQ(drawn.picture.height, 100u) << c.note;
    }

    // A raw value gets the 2D column and row counts as its picture: a tree larger than the
    // picture fails the facade's size check.
    BarcodeFacade2 facade;
    VelkoTest::setUp(facade, kType, 220, 100);
    facade.setCodeIsRaw(true);
    facade.setColumn2DCount(600);
    facade.setRow2DCount(400);
    facade.setCodeValue(kDemo.c_str());
    const VelkoTest::Picture picture = VelkoTest::render(facade);
    EXPECT_EQ(facade.getLastError().code(), 2);
    EXPECT_EQ(facade.getLastError().message().toStdString(), "size too small");
    EXPECT_EQ(picture.width, 200u);
}
