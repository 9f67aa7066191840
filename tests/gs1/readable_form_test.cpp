#include <gtest/gtest.h>

#include <string>

#include "layer/GS1/gs1_readable.h"

namespace {

TEST(ReadableForm, BytesThatCantBeShownBecomeGroups) {
    const struct {
        std::string raw;
        std::string hrs;
    } cases[] = {
        {"\x1d"
         "A",
         "(029)A"},
        {"\x01\x02"
         "A\x03",
         "(001002)A(003)"},
        {"AB-1", "AB-1"},
        {"a b", "a(032)b"},
        {"\x7f\xe9", "(127233)"},
        {std::string("\0x", 2), "(000)x"},
        {"", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(raw2HRS(c.raw), c.hrs);
        EXPECT_EQ(raw2HRS(c.raw.data(), static_cast<int>(c.raw.size())), c.hrs);
    }
    // Wide text is read as its UTF-8 bytes.
    EXPECT_EQ(raw2HRS(std::wstring(L"\x1d\xe9")), L"(029195169)");
    EXPECT_EQ(raw2HRS(L"\x1d"
                      L"AB",
                      2),
              L"(029)A");
}

TEST(ReadableForm, WhichBytesAreShownAsNumbers) {
    for (int c : {0, 9, 31, 32, 127, 128, 255, -1, -128}) {
        EXPECT_TRUE(isGS(c)) << c;
    }
    for (int c : {33, int{'0'}, int{'A'}, int{'z'}, int{'~'}, int{'('}, -256 + 'A'}) {
        EXPECT_FALSE(isGS(c)) << c;
    }
}

TEST(ReadableForm, GroupsReadBackAndMalformedTextGivesNothing) {
    const struct {
        std::wstring hrs;
        std::wstring raw;
    } cases[] = {
        {L"(029)A", std::wstring{29, L'A'}},
        {L"(001002)A(003)", std::wstring{1, 2, L'A', 3}},
        {L"A()B", L"AB"},
        {L"plain", L"plain"},
        {L"(02)A", L""},
        {L"(0290)A", L""},
        {L"A)B", L""},
        {L"((029))", L""},
        {L"(0x9)", L""},
        {L"(029", L""},  // never closed
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.hrs));
        EXPECT_EQ(hrs2Raw(c.hrs), c.raw);
        wchar_t buffer[8];
        std::fill(std::begin(buffer), std::end(buffer), L'?');
        EXPECT_EQ(hrs2Raw(buffer, c.hrs, 8), static_cast<int>(c.raw.size()));
        EXPECT_EQ(std::wstring(buffer, c.raw.size()), c.raw);
        EXPECT_TRUE(
            std::all_of(buffer + c.raw.size(), std::end(buffer), [](wchar_t w) { return w == 0; }));
    }
    wchar_t small[3] = {L'?', L'?', L'?'};
    EXPECT_EQ(hrs2Raw(small, L"(065066067068)", 3), 3);
    EXPECT_EQ(std::wstring(small, 3), L"ABC");
    EXPECT_EQ(raw2HRS(hrs2Raw(L"(001)x(031127)")), L"(001)x(031127)");
}

TEST(ReadableForm, PrintableKeepsLettersDigitsAndPunctuation) {
    std::wstring text = L"A b\x1d-1\x7f";
    EXPECT_EQ(raw2Printable(text.data(), 4), L"Ab");
    EXPECT_EQ(raw2Printable(text), L"Ab-1");
    EXPECT_EQ(text, L"Ab-1");
}

}  // namespace
