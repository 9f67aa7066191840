#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/pdf417/strategy_pdf417.h"
#include "BarcodeLib/pdf417/visitor_size_pdf417.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "host/text_forms.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;
using Codewords = StrategyPDF417::Codewords;

namespace {

constexpr unsigned kPDF417 = 6;

// The check words from their definition, by plain long division: g(x) = (x - 3)(x - 3^2) ...
// (x - 3^k) over GF(929), and the check words are -(d(x) x^k mod g(x)), highest degree first.
Codewords checkWordsByDivision(const Codewords& data, unsigned k) {
    const unsigned p = 929;
    std::vector<unsigned> g{1};  // highest degree first
    unsigned root = 1;
    for (unsigned j = 1; j <= k; ++j) {
        root = root * 3 % p;
        std::vector<unsigned> product(g.size() + 1, 0);
        for (size_t i = 0; i < g.size(); ++i) {
            product[i] = (product[i] + g[i]) % p;
            product[i + 1] = (product[i + 1] + p - g[i] * root % p) % p;
        }
        g = product;
    }
    std::vector<unsigned> rest(data.begin(), data.end());
    rest.resize(data.size() + k, 0);
    for (size_t i = 0; i < data.size(); ++i) {
        const unsigned factor = rest[i];
        for (size_t j = 0; j <= k; ++j) {
            rest[i + j] = (rest[i + j] + p - factor * g[j] % p) % p;
        }
    }
    Codewords check;
    for (size_t i = data.size(); i < rest.size(); ++i) {
        check.push_back(static_cast<uint16_t>((p - rest[i]) % p));
    }
    return check;
}

// The tree of text, its size from first and second; none if refused.
std::unique_ptr<AbstractBarcodeElement> generate(const std::wstring& text, int first, int second,
                                                 int ecl = 1) {
    StrategyPDF417 strategy;
    AbstractBarcodeElement* root = nullptr;
    std::wstring codeText = L"stale";
    const bool ok =
        strategy.generate(text.c_str(), &root, 0, 0, true, first, second, ecl, 0, codeText);
    EXPECT_EQ(ok, root != nullptr);
    EXPECT_TRUE(codeText.empty());
    return std::unique_ptr<AbstractBarcodeElement>(root);
}

// A facade with type 6 and a picture of width x height, as a host sets it up.
struct Symbol {
    BarcodeFacade2 facade;
    Symbol(unsigned width, unsigned height, unsigned level = 1, unsigned rotation = 0) {
        VelkoTest::setUp(facade, kPDF417, width, height, rotation);
        facade.setECL(level);
    }
    // The picture of utf8 read back; empty if it doesn't scan or didn't draw.
    std::string scan(const std::string& utf8) {
        facade.setCodeValue(str2wstr(utf8).c_str());
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(facade.getLastError().code(), 0) << utf8;
        return VelkoTest::scan(picture, ZXing::BarcodeFormat::PDF417);
    }
    int failure(const std::string& utf8) {
        facade.setCodeValue(str2wstr(utf8).c_str());
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(std::pair(picture.width, picture.height), std::pair(200u, 100u));
        EXPECT_EQ(facade.getLastError().message().toStdWString(), L"invalid barcode");
        return facade.getLastError().code();
    }
};

// Lower-case letters cost one latch and half a codeword each: n data codewords, descriptor
// included, from 2n - 3 letters.
std::string lettersFor(unsigned dataCodewords) {
    std::string text;
    for (unsigned i = 0; i < 2 * dataCodewords - 3; ++i) {
        text += static_cast<char>('a' + i % 26);
    }
    return text;
}

}  // namespace

// Each pattern has four bars and four spaces over 17 modules, none wider than 6, and belongs to
// its cluster by its bar widths; no pattern repeats within a cluster.
TEST(PDF417Tables, PatternsKeepTheirClusterRules) {
    for (unsigned cluster = 0; cluster < 3; ++cluster) {
        std::set<std::string> seen;
        for (unsigned codeword = 0; codeword < 929; ++codeword) {
            const std::string pattern = StrategyPDF417::g_aszPDF417Tables[cluster][codeword];
            SCOPED_TRACE(std::to_string(cluster) + ":" + std::to_string(codeword) + " " + pattern);
            ASSERT_EQ(pattern.size(), 17u);
            std::vector<int> widths;
            for (size_t i = 0; i < pattern.size(); ++i) {
                ASSERT_TRUE(pattern[i] == '0' || pattern[i] == '1');
                if (i == 0 || pattern[i] != pattern[i - 1]) {
                    widths.push_back(0);
                }
                ++widths.back();
            }
            ASSERT_EQ(pattern.front(), '1');
            ASSERT_EQ(widths.size(), 8u);
            for (int width : widths) {
                EXPECT_LE(width, 6);
            }
            EXPECT_EQ((widths[0] - widths[2] + widths[4] - widths[6] + 9) % 9, 3 * cluster);
            EXPECT_TRUE(seen.insert(pattern).second);
        }
    }
}

TEST(PDF417Tables, CorrectionIsTheRemainderOfTheGenerator) {
    StrategyPDF417 strategy;
    Codewords data;
    for (unsigned i = 0; i < 40; ++i) {
        data.push_back(static_cast<uint16_t>((i * 337 + 11) % 929));
    }
    for (unsigned level : {0u, 1u, 3u, 6u, 8u}) {
        Codewords correction;
        strategy.calcEC(data, level, correction);
        EXPECT_EQ(correction, checkWordsByDivision(data, 2u << level)) << "level " << level;
    }
}

TEST(PDF417Compaction, SegmentsAndTheirLatches) {
    const std::string del = "\x7f";
    const std::string ctrl = "\x01";
    const struct {
        std::string text;
        Codewords latches;  // 900 text, 901 byte, 902 numeric, 924 byte in sixes
        size_t codewords;
    } cases[] = {
        {"PDF417 example", {}, 8},  // one text segment despite the digits
        {"1234567", {}, 4},
        {"12345678", {902}, 4},
        {"123456789", {}, 5},  // 9 digits stay in text, 10 don't
        {"1234567890", {902}, 5},
        {"Lot 12345678 ok", {902, 900}, 10},
        {del + "12", {901, 902}, 4},  // behind bytes 2 digits are worth a latch, 3 aren't
        {del + "123", {901, 901}, 6},
        {del + "1234", {901, 902}, 5},
        {del + "abcd", {901, 901}, 7},  // behind bytes 4 letters stay bytes, 5 don't
        {del + "abcde", {901, 900}, 6},
        {std::string(6, '\x01'), {924}, 6},
        {std::string(12, '\x01'), {924}, 11},
        {std::string(7, '\x01'), {901}, 7},
        {std::string(5, '\x01'), {901}, 6},
        {"\xd0\x9f\xd1\x80\xd0\xb8\xd0\xb2\xd0\xb5\xd1\x82", {924}, 11},  // Cyrillic, 12 bytes
        {"ab" + ctrl + "cd", {901, 901}, 7},  // too short a text to leave byte compaction for
        {"a;b;c", {}, 4},                     // punctuation by shift
    };
    for (const auto& c : cases) {
        StrategyPDF417 strategy;
        const StrategyPDF417::Bytes bytes(c.text.begin(), c.text.end());
        Codewords codewords;
        strategy.packMessage(bytes, 0, bytes.size(), codewords);
        Codewords latches;  // the data codewords from 900 up
        std::copy_if(codewords.begin(), codewords.end(), std::back_inserter(latches),
                     [](uint16_t codeword) { return codeword >= 900; });
        EXPECT_EQ(latches, c.latches) << c.text;
        EXPECT_EQ(codewords.size(), c.codewords) << c.text;
    }
}

TEST(PDF417Strategy, WishedColumnsAndRowsEachReplaceTheirHalf) {
    const struct {
        int first, second;
        unsigned columns, rows;  // 0: refused
    } cases[] = {
        {0, 0, 3, 5}, {-1, -1, 3, 5}, {30, 90, 3, 5}, {29, 0, 29, 5}, {0, 89, 3, 89},
        {5, 3, 5, 3}, {1, 0, 0, 0},   {0, 3, 0, 0},   {29, 89, 0, 0},  // 2581 codewords
    };
    for (const auto& c : cases) {
        const auto root = generate(L"PDF417 example", c.first, c.second);
        SCOPED_TRACE(std::to_string(c.first) + " x " + std::to_string(c.second));
        EXPECT_EQ(root ? root->getMinWidth() : 0, c.columns ? 17 * c.columns + 69 : 0);
        EXPECT_EQ(root ? root->getMinHeight() : 0, c.rows);
    }
}

TEST(PDF417Strategy, RefusalsAndBrokenCalls) {
    StrategyPDF417 strategy;
    EXPECT_FALSE(generate(L"level nine", 0, 0, 9));
    EXPECT_FALSE(generate(L"negative level", 0, 0, -1));
    EXPECT_FALSE(generate(std::wstring(4096, L'a'), 0, 0, 0));
    // One data codeword at level 0 would need 2 x 2.
    EXPECT_TRUE(strategy.checkRaw(L"A"));
    EXPECT_FALSE(generate(L"A", 0, 0, 0));
    EXPECT_TRUE(generate(L"A", 0, 0, 1));

    BarcodeBar bare(1, 1, false, false);
    EXPECT_THROW(VisitorSizePDF417(100, 100, 1, 4).visit(&bare), BarcodeException::Unexpected);
}

TEST(PDF417Strategy, VisitorScalesByTheTighterSide) {
    const struct {
        unsigned width, height, columns, rows, aspectX, aspectY, scale;
    } cases[] = {
        {120, 100, 3, 5, 1, 4, 1}, {360, 100, 3, 5, 1, 4, 3}, {1000, 10, 3, 5, 1, 4, 2},
        {1000, 4, 3, 5, 2, 3, 1},  {50, 100, 3, 5, 1, 4, 1},  {240, 1000, 3, 5, 3, 1, 2},
    };
    for (const auto& c : cases) {
        BarcodeBar bar(3, 7, false, false);
        bar.setCustomData(c.columns << 16 | c.rows);
        VisitorSizePDF417(c.width, c.height, c.aspectX, c.aspectY).visit(&bar);
        SCOPED_TRACE(std::to_string(c.width) + " x " + std::to_string(c.height));
        EXPECT_EQ(bar.getMinHeight(), 1u);
        EXPECT_EQ(bar.getScaleX(), c.scale * c.aspectX);
        EXPECT_EQ(bar.getScaleY(), c.scale * c.aspectY);
    }
}

TEST(PDF417Scan, Texts) {
    std::string longText;
    for (int i = 0; i < 12; ++i) {
        longText += "Line " + std::to_string(i) + ": The quick brown fox; (jumps) over #42! ";
    }
    const std::string cases[] = {
        "PDF417 example",
        "a",
        "Mixed CASE and lower, UPPER; punct: [x] {y} <z> ~`|\\\"'@_^",
        "tab\tand\r\nnewline",
        longText,
        u8"Привет, мир! Съешь же ещё этих мягких французских булок",
        u8"Ελληνικά 日本語 \U0001F600 ünïcödé",
        u8"é",
        "\x01\x02\x03 controls \x7f",
    };
    Symbol symbol(600, 300);
    for (const std::string& text : cases) {
        EXPECT_EQ(symbol.scan(text), text);
    }
}

TEST(PDF417Scan, DigitRunsOfEveryLengthInsideText) {
    std::string digits;
    Symbol symbol(400, 200);
    for (int length = 1; length <= 50; ++length) {
        digits += static_cast<char>('0' + length * 7 % 10);
        const std::string text = (length % 2 ? "Ref " : u8"Réf ") + digits + " end";
        EXPECT_EQ(symbol.scan(text), text);
    }
}

TEST(PDF417Scan, ByteRunsOfEveryLengthUpToThirteen) {
    Symbol symbol(600, 300);
    for (size_t length = 1; length <= 13; ++length) {
        const std::string text = "Go" + std::string(length, '\x7f') + "stop";
        EXPECT_EQ(symbol.scan(text), text) << length;
    }
}

TEST(PDF417Scan, EveryLevelAndRotation) {
    const unsigned kRotations[] = {0, 90, 180, 270};
    for (unsigned level = 0; level <= 8; ++level) {
        const unsigned rotation = kRotations[level % 4];
        SCOPED_TRACE("level " + std::to_string(level) + ", rotation " + std::to_string(rotation));
        Symbol symbol(1000, 500, level, rotation);
        const std::string text = "Level " + std::to_string(level) + ", shelf 0815-4711";
        EXPECT_EQ(symbol.scan(text), text);
    }
}

// The raw path takes ColumnCount and RowCount; the plain path takes the picture's size.
TEST(PDF417Scan, RawPathTakesColumnAndRowCount) {
    // A row is four modules high whatever the picture's height: each picture leaves room.
    const struct {
        unsigned columns, rows, width, height;
    } cases[] = {{1, 40, 200, 400}, {10, 6, 600, 300}, {29, 3, 1200, 400}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.columns) + " x " + std::to_string(c.rows));
        Symbol symbol(c.width, c.height);
        symbol.facade.setCodeIsRaw(true);
        symbol.facade.setColumn2DCount(c.columns);
        symbol.facade.setRow2DCount(c.rows);
        EXPECT_EQ(symbol.scan("Column and row count"), "Column and row count");
        EXPECT_TRUE(symbol.facade.getCodeIsRaw());
        EXPECT_EQ(symbol.facade.getCodeMinWidth(), 17 * c.columns + 69);
        EXPECT_EQ(symbol.facade.getCodeMinHeight(), c.rows);
    }
    // A picture 60 pixels high asks for 60 rows on the plain path.
    Symbol plain(600, 60);
    plain.facade.setCodeValue(L"sixty rows");
    EXPECT_EQ(plain.facade.getCodeMinHeight(), 60u);
}

// Automatic sizes stop at 30 x 30 codewords. Wished sizes go up to 928, but only at a level
// above 0, for the value must also fit an automatic symbol of level 0 to be taken at all.
TEST(PDF417Scan, NearTheCodewordLimit) {
    Symbol automatic(1200, 400, 0);
    EXPECT_EQ(automatic.scan(lettersFor(898)), lettersFor(898));
    EXPECT_EQ(automatic.facade.getCodeMinWidth(), 17 * 30 + 69);
    EXPECT_EQ(automatic.failure(lettersFor(899)), 3);

    Symbol wished(1200, 400, 5);
    wished.facade.setCodeIsRaw(true);
    wished.facade.setColumn2DCount(29);
    wished.facade.setRow2DCount(32);
    EXPECT_EQ(wished.scan(lettersFor(928 - 64)), lettersFor(928 - 64));
    EXPECT_EQ(wished.facade.getCodeMinHeight(), 32u);
    EXPECT_EQ(wished.failure(lettersFor(929 - 64)), 3);
}

TEST(PDF417Scan, FailuresGiveTheInvalidBarcodePicture) {
    Symbol tooLong(600, 300, 8);
    EXPECT_EQ(tooLong.failure(std::string(800, 'x')), 3);

    // A wished size too small for the value, set after it as a host may.
    Symbol tooSmall(600, 300);
    tooSmall.facade.setCodeIsRaw(true);
    EXPECT_EQ(tooSmall.scan("Needs more than three codewords"), "Needs more than three codewords");
    tooSmall.facade.setColumn2DCount(1);
    tooSmall.facade.setRow2DCount(3);
    const VelkoTest::Picture picture = VelkoTest::render(tooSmall.facade);
    EXPECT_EQ(tooSmall.facade.getLastError().code(), 3);
    EXPECT_EQ(picture.width, 200u);

    // The facade keeps the level within 0..8; the strategy refuses 9 (above).
    Symbol level(600, 300);
    level.facade.setECL(9);
    EXPECT_EQ(level.facade.getECL(), 8u);
}
