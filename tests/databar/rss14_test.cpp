#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <vector>

#include "BarcodeLib/databar/strategy_rss14.h"
#include "BarcodeLib/errors/barcode_exception.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;
using VelkoTest::build;
using VelkoTest::Leaf;
using VelkoTest::leavesOf;
using VelkoTest::narrow;
using ZXing::BarcodeFormat;

namespace {

StrategyRSS14 rss14;

const unsigned kCodeType = 12;

// The finder widths of ISO/IEC 24724 as the left finder shows them, to tell which finder a
// symbol carries.
const unsigned char kFinders[9][5] = {
    {3, 8, 2, 1, 1}, {3, 5, 5, 1, 1}, {3, 3, 7, 1, 1}, {3, 1, 9, 1, 1}, {2, 7, 4, 1, 1},
    {2, 5, 6, 1, 1}, {2, 3, 8, 1, 1}, {1, 5, 7, 1, 1}, {1, 3, 9, 1, 1},
};

int finderOf(const unsigned char* widths, bool reversed) {
    for (int f = 0; f < 9; ++f) {
        bool same = true;
        for (int i = 0; i < 5; ++i) {
            same = same && widths[i] == kFinders[f][reversed ? 4 - i : i];
        }
        if (same) {
            return f;
        }
    }
    return -1;
}

// The check sum of a symbol as a reader works it out: the element widths of each data
// character in its own reading direction, weighted by 3^k mod 79.
unsigned checkSumOf(const unsigned char* widths) {
    // first element and direction of data characters 1 to 4
    const struct {
        int first;
        int step;
    } characters[] = {{2, 1}, {22, -1}, {43, -1}, {23, 1}};
    unsigned weight = 1;
    unsigned sum = 0;
    for (const auto& c : characters) {
        for (int i = 0; i < 8; ++i) {
            sum += weight * widths[c.first + c.step * i];
            weight = weight * 3 % 79;
        }
    }
    return sum % 79;
}

// Every row is a valid data character of its group: module counts, widest elements, a narrow
// element where the set needs one, and the value order of the standard inside each group.
void checkPatterns(const unsigned char (*rows)[8],
                   const std::vector<std::array<unsigned, 4>>& groups, bool outside) {
    const auto sum = [](const std::string& s) { return std::accumulate(s.begin(), s.end(), 0u); };
    const auto widest = [](const std::string& s) {
        return unsigned(*std::max_element(s.begin(), s.end()));
    };
    for (size_t g = 0; g + 1 < groups.size(); ++g) {
        std::string previous;
        for (unsigned value = groups[g][0]; value < groups[g + 1][0]; ++value) {
            std::string odd;
            std::string even;
            for (int i = 0; i < 8; i += 2) {
                odd += static_cast<char>(rows[value][i]);
                even += static_cast<char>(rows[value][i + 1]);
            }
            const std::string& needsNarrow = outside ? even : odd;
            // Outside characters count the even set fastest, inside ones the odd set.
            const std::string key = outside ? odd + even : even + odd;
            ASSERT_TRUE(sum(odd) == groups[g][1] && sum(odd) + sum(even) == (outside ? 16u : 15u) &&
                        widest(odd) <= groups[g][2] && widest(even) <= groups[g][3] &&
                        key.find('\0') == std::string::npos &&
                        needsNarrow.find('\1') != std::string::npos && previous < key)
                << (outside ? "outside " : "inside ") << value;
            previous = key;
        }
    }
}

TEST(RSS14, PatternTables) {
    // first value of each group, odd modules, widest odd and widest even element; the end
    checkPatterns(
        StrategyRSS14::g_auOutsidePatterns,
        {{0, 12, 8, 1}, {161, 10, 6, 3}, {961, 8, 4, 5}, {2015, 6, 3, 6}, {2715, 4, 1, 8}, {2841}},
        true);
    checkPatterns(StrategyRSS14::g_auInsidePatterns,
                  {{0, 5, 2, 7}, {336, 7, 4, 5}, {1036, 9, 6, 3}, {1516, 11, 8, 1}, {1597}}, false);
}

// The values of the round trips: the ends of the number range, the check sums at both sides of
// the two skipped finder pairs, and data characters at the ends of their groups.
const struct {
    const char* raw;
    int checkSum;  // -1: not pinned
    const char* note;
} kValues[] = {
    {"00000000000000", 3, "first rows of both tables"},
    {"99999999999997", 7, "largest value; check sum 7, finders 0 and 7"},
    {"44952111340213", 8, "check sum 8, finders 1 and 0"},
    {"17933367975448", 70, "check sum 70, finders 7 and 8"},
    {"24837573089893", 71, "check sum 71, finders 8 and 1"},
    {"34647099251431", 78, "check sum 78, finders 8 and 8"},
    {"12345678901286", 76, "demo value"},
    {"11608340932881", -1, "data characters 160, 335, 161, 336"},
    {"69678282942986", -1, "data characters 961, 1035, 2014, 1036"},
    {"99987136963772", -1, "data characters 1379, 1515, 2015, 1516"},
    {"72529574797460", -1, "data characters 1000, 1596, 2714, 1596"},
    {"36243847782271", -1, "data characters 500, 336, 2715, 0"},
    {"50767033258871", -1, "data characters 700, 1036, 2840, 335"},
};

TEST(RSS14, WidthsAndFinders) {
    for (const auto& v : kValues) {
        SCOPED_TRACE(v.note);
        const unsigned long long value = std::stoull(std::string(v.raw, 13));
        unsigned char widths[StrategyRSS14::kElementCount] = {};
        const unsigned left = StrategyRSS14::encodeValue(value, widths);
        EXPECT_EQ(std::accumulate(widths, widths + 46, 0u), 96u);
        EXPECT_EQ(std::accumulate(widths + 2, widths + 10, 0u), 16u);
        EXPECT_EQ(std::accumulate(widths + 15, widths + 23, 0u), 15u);
        EXPECT_EQ(std::accumulate(widths + 23, widths + 31, 0u), 15u);
        EXPECT_EQ(std::accumulate(widths + 36, widths + 44, 0u), 16u);
        EXPECT_EQ(std::string(widths, widths + 2) + std::string(widths + 44, widths + 46),
                  std::string(4, '\1'));

        const unsigned sum = checkSumOf(widths);
        if (v.checkSum >= 0) {
            EXPECT_EQ(sum, static_cast<unsigned>(v.checkSum));
        }
        const int leftFinder = finderOf(widths + 10, false);
        const int rightFinder = finderOf(widths + 31, true);
        EXPECT_EQ(leftFinder, static_cast<int>(left));
        // Finder pairs (0, 8) and (8, 0) are never used.
        EXPECT_EQ(9 * leftFinder + rightFinder, sum + (sum >= 8) + (sum >= 71));
    }
}

TEST(RSS14, TreeTextAndSize) {
    const struct {
        bool showCS;
        const wchar_t* codeText;  // in
        const char* text;         // out
    } cases[] = {
        {true, L"", "12345678901286"},
        {false, L"", "1234567890128"},
        {false, L"label", "label"},
    };
    for (const auto& c : cases) {
        std::wstring codeText = c.codeText;
        auto root = build(rss14, L"12345678901286", 0, &codeText, c.showCS);
        ASSERT_TRUE(root);
        EXPECT_EQ(narrow(codeText), c.text);
        const std::vector<Leaf> leaves = leavesOf(root.get());
        ASSERT_EQ(leaves.size(), 47u);
        for (size_t i = 0; i < 46; ++i) {
            EXPECT_EQ(leaves[i].kind, i % 2 == 0 ? '0' : '1');
            EXPECT_EQ(leaves[i].last, i == 45);
            EXPECT_FALSE(leaves[i].control);
        }
        EXPECT_EQ(leaves[46].kind, 'T');
        EXPECT_EQ(leaves[46].modules, 96u);
        EXPECT_EQ(leaves[46].text, c.text);
        EXPECT_EQ(root->getMinWidth(), 96u);
    }

    // width, height, font: module width, bar height
    const unsigned sizes[][5] = {{300, 100, 12, 3, 88}, {96, 20, 10, 1, 10}, {50, 8, 10, 1, 0}};
    for (const auto& s : sizes) {
        auto root = build(rss14, L"00000000000000");
        VelkoTest::sizeTree(rss14, root.get(), s[0], s[1], s[2]);
        const std::vector<Leaf> leaves = leavesOf(root.get());
        EXPECT_EQ(leaves[0].scaleX, s[3]);
        EXPECT_EQ(leaves[0].height, s[4]);
        EXPECT_EQ(leaves[46].scaleX, s[3]);
        EXPECT_EQ(leaves[46].height, s[2]);
    }

    std::wstring text;
    AbstractBarcodeElement* root = nullptr;
    EXPECT_THROW(rss14.generate(L"12345678901286", &root, 7, 0, true, 0, 0, 0, 0, text),
                 BarcodeException::TextAlignWrongValue);
}

TEST(RSS14, ScansBack) {
    for (const auto& v : kValues) {
        EXPECT_EQ(
            VelkoTest::scan(VelkoTest::draw(kCodeType, std::wstring(v.raw, v.raw + 13), 320, 110),
                            BarcodeFormat::DataBar),
            v.raw)
            << v.note;
    }
}

}  // namespace
