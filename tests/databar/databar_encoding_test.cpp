#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "BarcodeLib/databar/gs1_databar_exp_stack_binary_string_maker.h"
#include "BarcodeLib/databar/gs1_databar_exp_stack_symbol_signs_maker.h"
#include "BarcodeLib/databar/gs1_databar_exp_stack_tables.h"
#include "BarcodeLib/databar/rss_widths.h"

namespace {

std::string repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

// The 44 bits of the GTIN 04600822901507 in the compressed method: the digit 0 in 4 bits, then
// 460, 082, 290 and 150 in 10 bits each; the check digit 7 stays out.
// clang-format off
const std::string kGtinBits = "0000" "0111001100" "0001010010" "0100100010" "0010010110";
// clang-format on

}  // namespace

// Worked out by hand from the encodation rules of ISO/IEC 24724: the header is the linkage flag
// 0, the method ("1" compressed GTIN, "00" general purpose) and the two bits of the variable
// length field (odd number of symbol characters with the check character, more than 14 of
// them). A numeric pair ab is 11a + b + 8 in 7 bits, the separator counting 10.
TEST(GS1DatabarExpStackBinaryString, MatchesTheEncodationRulesBitForBit) {
    const struct {
        const char* note;
        std::string input;
        std::string expected;
    } cases[] = {
        // clang-format off
        {"demo: pairs 10, 12, latch 0000, A as 32 in 6 bits, padded to 36 with 00100",
         "1012A", "0" "00" "00" "0010011" "0010101" "0000" "100000" "0010000"},
        {"GTIN alone: 48 bits, 5 characters, odd", "0104600822901507", "0" "1" "10" + kGtinBits},
        {"GTIN and (11)161109: pairs 11 16 11 09, padding 0000 then 00100 cut at 8 bits",
         "010460082290150711161109",
         "0" "1" "00" + kGtinBits + "0010100" "0011001" "0010100" "0010001" "00000010"},
        {"a lone last digit with 6 bits of room: 5 + 1 in 4 bits", "123456789012345",
         "0" "00" "00" "0010101" "0101101" "1000101" "1011101" "1101011" "0010101" "0101101"
         "0110" "00"},
        {"a lone last digit with 24 bits of room: the pair 3 and 10", "123",
         "0" "00" "00" "0010101" "0110011" "0000" "00100" "00100" "001"},
        {"small letters: latches 0000 and 00100, a as 90 in 7 bits", "21ab",
         "0" "00" "00" "0011111" "0000" "00100" "1011010" "1011011" "0"},
        {"a separator stays in alphanumeric, 01111, and the digits behind it go numeric",
         "10A\x1d" "2112",
         "0" "00" "10" "0010011" "0000" "100000" "01111" "0011111" "0010101" "0000001"},
        {"six digits between capitals go numeric, latch 000", "A123456B",
         "0" "00" "00" "0000" "100000" "000" "0010101" "0101101" "1000101" "0000" "100001"
         "00100001000"},
        {"five digits between capitals stay alphanumeric, a digit as d + 5 in 5 bits", "A12345B",
         "0" "00" "10" "0000" "100000" "00110" "00111" "01000" "01001" "01010" "100001" "00"},
        {"four digits at the very end go numeric", "AB1234",
         "0" "00" "10" "0000" "100000" "100001" "000" "0010101" "0101101" "0000001000"},
        {"three digits at the very end don't", "AB123",
         "0" "00" "00" "0000" "100000" "100001" "00110" "00111" "01000"},
        {"ISO/IEC 646 punctuation in 8 bits", "a!\"%",
         "0" "00" "10" "0000" "00100" "1011010" "11101000" "11101001" "11101010" "001"},
        {"70 digits fill 252 bits: 22 characters, even, more than 14", repeated("10", 35),
         "0" "00" "01" + repeated("0010011", 35) + "00"},
        // clang-format on
    };
    for (const auto& c : cases) {
        std::string bits;
        EXPECT_TRUE(GS1DatabarExpStackBinaryStringMaker().BuildBinaryString(c.input, bits))
            << c.note;
        EXPECT_EQ(bits, c.expected) << c.note;
    }
}

TEST(GS1DatabarExpStackBinaryString, RefusesWhatHasNoEncoding) {
    const struct {
        const char* note;
        std::string input;
    } cases[] = {
        {"number sign", "10AB#"},
        {"above z", "10a{"},
        {"control character", "10\x01"},
        {"UTF-8 bytes", "10\xc3\xa9"},
        {"commercial at", "21@"},
        {"a letter within the GTIN", "010460082290150A"},
        {"71 digits: 257 bits", repeated("1", 71)},
    };
    for (const auto& c : cases) {
        std::string bits;
        EXPECT_FALSE(GS1DatabarExpStackBinaryStringMaker().BuildBinaryString(c.input, bits))
            << c.note;
    }
}

TEST(GS1DatabarExpStackSigns, CombinsIsTheBinomialCoefficient) {
    const struct {
        int n, r, expected;
    } cases[] = {{4, 0, 1}, {4, 4, 1}, {5, 2, 10}, {12, 3, 220}, {16, 8, 12870}, {20, 3, 1140}};
    for (const auto& c : cases) {
        EXPECT_EQ(combins(c.n, c.r), c.expected) << c.n << " over " << c.r;
    }
}

// Every value of every group gives a character of 17 modules whose sets keep their module counts
// and widest elements, the odd set has a narrow element, and no two values share a pattern.
TEST(GS1DatabarExpStackSigns, EveryCharacterValueHasItsOwnValidPattern) {
    std::set<std::vector<int>> seen;
    for (int group = 0; group < kValueGroupCount; ++group) {
        const GS1DatabarExpStackValueGroup& g = g_aValueGroups[group];
        const int last = group + 1 < kValueGroupCount ? g_aValueGroups[group + 1].firstValue : 4192;
        for (int value = g.firstValue; value < last; ++value) {
            GS1DatabarExpStackSign sign;
            GS1DatabarExpStackSymbolSignsMaker::CalcSymbolSign(value, sign);
            ASSERT_EQ(sign.size(), 8u);
            int odd = 0, even = 0, narrowOdd = 0;
            for (int e = 0; e < 8; e += 2) {
                odd += sign[e];
                even += sign[e + 1];
                narrowOdd += sign[e] == 1;
                ASSERT_LE(sign[e], g.widestOdd) << value;
                ASSERT_LE(sign[e + 1], g.widestEven) << value;
                ASSERT_GE(sign[e + 1], 1) << value;
            }
            ASSERT_EQ(odd, g.oddModules) << value;
            ASSERT_EQ(even, g.evenModules) << value;
            ASSERT_GT(narrowOdd, 0) << value;
            ASSERT_TRUE(seen.insert(sign).second) << value;
        }
    }
    EXPECT_EQ(seen.size(), 4192u);
}
