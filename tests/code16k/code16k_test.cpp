#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BarcodeLib/code16k/strategy_code16k.h"
#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "tests/code16k/code16k_reader.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;
using VelkoTest::Leaf;
using VelkoTest::leavesOf;
using VelkoTest::narrow;

namespace {

StrategyCode16k code16k;

const unsigned kCodeType = 5;
// Fits 16 rows at 3 pixels a module.
const unsigned kWidth = 260;
const unsigned kHeight = 460;

std::wstring wide(const std::string& text) {
    return std::wstring(text.begin(), text.end());
}

const std::string kLongestDigits = [] {
    std::string digits;
    for (int i = 0; i < 152; ++i) {
        digits += static_cast<char>('0' + i * 7 % 10);
    }
    return digits;
}();

// Each case: the text, its start mode and rows, and the symbol values between the mode
// character and the pads, worked out by hand from the change rules.
const struct {
    std::string text;
    unsigned mode;
    unsigned rows;
    std::vector<unsigned> data;
    const char* note;
} kCases[] = {
    {"Code16k", 1, 3, {35, 79, 68, 69, 99, 16, 100, 75}, "demo: latch C for 16, B for k"},
    {"12", 2, 2, {12}, "one value gets six pads"},
    {"A", 1, 2, {33}, "a character of A and B starts in B"},
    {"\001ABC", 0, 2, {65, 33, 34, 35}, "control character starts in A"},
    {"a12", 5, 2, {65, 12}, "B character, then C"},
    {"ab12", 6, 2, {65, 66, 12}, "two B characters, then C"},
    {"1234ab5678", 2, 3, {12, 34, 105, 65, 66, 56, 78}, "C: two B characters shifted"},
    {"12abc34", 2, 2, {12, 106, 65, 66, 67, 34}, "C: three B characters shifted"},
    {"12abcd", 2, 2, {12, 100, 65, 66, 67, 68}, "C: latch B"},
    {"12A34", 2, 2, {12, 104, 33, 34}, "C: one character shifted to B"},
    {"12\00134", 2, 2, {12, 101, 65, 99, 34}, "C: a control character latches A"},
    {"ab\001cd", 1, 2, {65, 66, 98, 65, 67, 68}, "B: one A character shifted"},
    {"ab\001\002cd", 1, 3, {65, 66, 104, 65, 66, 67, 68}, "B: two A characters shifted"},
    {"ab\001\002\003", 1, 2, {65, 66, 101, 65, 66, 67}, "B: latch A"},
    {"abc1234de", 1, 3, {65, 66, 67, 105, 12, 34, 68, 69}, "B: two pairs shifted"},
    {"abc123456de", 1, 3, {65, 66, 67, 106, 12, 34, 56, 68, 69}, "B: three pairs shifted"},
    {"abc12345678", 1, 3, {65, 66, 67, 99, 12, 34, 56, 78}, "B: latch C"},
    {"abc12de", 1, 3, {65, 66, 67, 99, 12, 100, 68, 69}, "B: one pair is latched"},
    {"abc123x", 1, 3, {65, 66, 67, 99, 12, 100, 19, 88}, "three digits: the third waits"},
    {"\001\002a\003", 0, 2, {65, 66, 98, 65, 67}, "A: one B character shifted"},
    {"\001\002ab\003", 0, 2, {65, 66, 104, 65, 66, 67}, "A: two B characters shifted"},
    {"\001abc", 0, 2, {65, 100, 65, 66, 67}, "A: latch B"},
    {"\001\0021234\003", 0, 2, {65, 66, 105, 12, 34, 67}, "A: two pairs shifted"},
    {"\001123456\002", 0, 2, {65, 106, 12, 34, 56, 66}, "A: three pairs shifted"},
    {"\00112345678", 0, 2, {65, 99, 12, 34, 56, 78}, "A: latch C"},
    {"\t\r\n\x7f", 0, 2, {73, 77, 74, 100, 95}, "control characters and DEL"},
    // 15 values with the mode character and the checks: a fourth row, of pads only
    {"abcdefghijkl", 1, 4, {65, 66, 67, 68, 69, 70, 71, 72, 73, 74, 75, 76}, "a row of pads"},
    {kLongestDigits, 2, 16, {}, "largest message: 76 pairs"},
    {std::string(76, 'x'), 1, 16, std::vector<unsigned>(76, 88), "76 characters of B"},
};

TEST(Code16k, SymbolValuesReadBackFromPixels) {
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.note);
        std::vector<unsigned> expected = {7 * (c.rows - 2) + c.mode};
        if (c.data.empty()) {
            for (size_t i = 0; i < c.text.size(); i += 2) {
                expected.push_back(static_cast<unsigned>(std::stoul(c.text.substr(i, 2))));
            }
        } else {
            expected.insert(expected.end(), c.data.begin(), c.data.end());
        }
        expected.resize(5 * c.rows - 2, 103);
        unsigned first = 0, second = 0;
        Code16kTest::checkCharacters(expected, first, second);
        expected.push_back(first);
        expected.push_back(second);

        std::vector<unsigned> values;
        ASSERT_TRUE(StrategyCode16k::parseMessage(wide(c.text).c_str(), values));
        EXPECT_EQ(values, expected);
        std::string error;
        EXPECT_EQ(Code16kTest::decodeValues({values.begin(), values.end() - 2}, error), c.text);
        EXPECT_EQ(error, "");

        const Code16kTest::Reading reading =
            Code16kTest::read(VelkoTest::draw(kCodeType, wide(c.text), kWidth, kHeight));
        EXPECT_EQ(reading.error, "");
        EXPECT_EQ(reading.text, c.text);
        EXPECT_EQ(reading.rows, c.rows);
        EXPECT_EQ(reading.mode, c.mode);
        EXPECT_EQ(reading.values, expected);
    }
}

TEST(Code16k, Refusals) {
    const std::string cases[] = {
        "",
        "caf\xe9",
        kLongestDigits + "12",              // 77 pairs: five pads would make 17 rows
        std::string(77, 'x'),               // the same in B
        std::string(75, 'x') + "\x01\x02",  // a latch to A makes 78 values
        std::string(300, '7'),
    };
    for (const std::string& text : cases) {
        SCOPED_TRACE(text.size());
        std::vector<unsigned> values = {1};
        EXPECT_FALSE(StrategyCode16k::parseMessage(wide(text).c_str(), values));
        EXPECT_TRUE(values.empty());
        EXPECT_FALSE(code16k.checkRaw(wide(text).c_str()));
        std::wstring check;
        EXPECT_FALSE(code16k.calcCheckSymbol(wide(text).c_str(), check));
        std::wstring codeText = L"old";
        AbstractBarcodeElement* root = nullptr;
        EXPECT_FALSE(code16k.generate(wide(text).c_str(), &root, 0, 0, true, 0, 0, 0, 0, codeText));
        EXPECT_EQ(root, nullptr);
        EXPECT_EQ(codeText, L"");
    }
    std::vector<unsigned> values;
    EXPECT_THROW(StrategyCode16k::parseMessage(nullptr, values), BarcodeException::Unexpected);
    std::wstring check = L"?";
    EXPECT_TRUE(code16k.calcCheckSymbol(L"Code16k", check));
    EXPECT_EQ(check, L"");
}

TEST(Code16k, TreeAndScale) {
    std::wstring codeText = L"stale";
    AbstractBarcodeElement* raw = nullptr;
    ASSERT_TRUE(code16k.generate(code16k.getDemoValue(), &raw, 9, 0, true, 0, 0, 0, 0, codeText));
    std::unique_ptr<AbstractBarcodeElement> root(raw);
    EXPECT_EQ(codeText, L"");  // no text under the symbol
    EXPECT_EQ(code16k.getDefaultTextAlign(), 0u);
    EXPECT_EQ(std::wstring(code16k.getRawDemoValue()), L"Code16k");

    // Bar, three data rows with separators between them, bar; the reader checks their modules.
    const std::vector<Leaf> leaves = leavesOf(root.get());
    std::vector<bool> control;
    unsigned row = 0;
    for (const Leaf& leaf : leaves) {
        ASSERT_NE(leaf.kind, 'T');
        EXPECT_EQ(leaf.customData, 3u);
        EXPECT_EQ(leaf.last, &leaf == &leaves.back());
        row += leaf.modules;
        if (row == (leaf.control ? 80u : 75u)) {
            control.push_back(leaf.control);
            row = 0;
        }
    }
    EXPECT_EQ(control, (std::vector<bool>{true, false, true, false, true, false, true}));

    // canvas: scale, then the height of a data row and of a bar
    const unsigned sizes[][3] = {{400, 400, 5}, {400, 100, 3}, {100, 1000, 1}, {10, 10, 1}};
    for (const auto& s : sizes) {
        SCOPED_TRACE(s[0]);
        VelkoTest::sizeTree(code16k, root.get(), s[0], s[1], 0);
        EXPECT_EQ(root->getWidth(), 80 * s[2]);
        EXPECT_EQ(root->getHeight(), 28 * s[2]);
    }

    std::unique_ptr<AbstractBarcodeVisitor> visitor(
        code16k.sizeVisitor(root.get(), 400, 400, 0, 0, 1, 1));
    BarcodeBar orphan(1, 1, false, false);
    EXPECT_THROW(visitor->visit(&orphan), BarcodeException::Unexpected);  // no row count
    EXPECT_THROW(visitor->visit(static_cast<BarcodeBar*>(nullptr)), BarcodeException::Unexpected);
}

}  // namespace
