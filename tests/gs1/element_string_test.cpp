#include <gtest/gtest.h>

#include <string>

#include "layer/GS1/gs1.h"
#include "layer/GS1/gs1_id_table.h"
#include "layer/GS1/gs1_readable.h"

namespace {

TEST(ElementString, RawFormOrTheReasonOfARefusal) {
    const std::string x20(20, 'x');
    const std::string tooLong = "Vary code part exeed standart";
    const struct {
        std::string text;
        std::string raw;  // for a refusal the text itself
        int code;
        std::string message;  // empty: no error
    } cases[] = {
        {"(10)ABC(21)123", "{FMC1}10ABC{GS1}21123", 0, ""},
        {"(01)04600822901507(11)161109(30)2434", "{FMC1}010460082290150711161109302434", 0, ""},
        {"(01)04600822901507(7240)ABC", "{FMC1}0104600822901507ABC", 0, ""},
        {" \t ", "", 0, ""},
        {"  (20)(1 ", "{FMC1}20(1", 0, ""},  // a fixed part takes any characters
        {"(99)", "{FMC1}99", 0, ""},         // no separator at the end
        // Brackets of one digit or five are data.
        {"(10)A(12345)(1)B", "{FMC1}10A(12345)(1)B", 0, ""},
        {"(10)" + x20, "{FMC1}10" + x20, 0, ""},
        {"(10)" + x20 + "x", "(10)" + x20 + "x", 100, tooLong},
        // The limit applies behind the fixed part.
        {"(253)1234567890123" + x20.substr(3), "{FMC1}2531234567890123" + x20.substr(3), 0, ""},
        {"(253)1234567890123" + x20.substr(2), "(253)1234567890123" + x20.substr(2), 100, tooLong},
        // The table's flag, not the length, asks for a separator.
        {"(8001)12345678901234(10)A", "{FMC1}800112345678901234{GS1}10A", 0, ""},
        {" (01)1234", " (01)1234", 100, "Unsuffisient code size [8,19]"},
        {"(10)A(01)123", "(10)A(01)123", 100, "Unsuffisient code size [12,24]"},
        {"(01)04600822901507X", "(01)04600822901507X", 0, "Not gs1 code"},
        {"(20)12X(10)A", "(20)12X(10)A", 0, "Not gs1 code"},  // text between two elements
        {"X(10)A", "X(10)A", 0, "Not gs1 code"},
        {"(7030)123", "(7030)123", 0, "Not gs1 code"},
        {"(20)12(9999)1", "(20)12(9999)1", 100, "No such gs1 code: 9999"},
        {"{FMC1}0104600822901507", "{FMC1}0104600822901507", 0, "Not gs1 code"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        PError error(7, "stale");
        EXPECT_EQ(text2gs1raw(c.text, &error), c.raw);
        EXPECT_EQ(error.code(), c.code);
        EXPECT_EQ(error.message().toStdString(), c.message);
        EXPECT_EQ(error.method().toStdString(), c.message.empty() ? "" : "text2gs1raw");
        EXPECT_EQ(text2gs1raw(c.text, nullptr), c.raw);
    }
    PError error;
    EXPECT_EQ(gs1raw2text("{FMC1}2012", &error), "");
    EXPECT_EQ(error.message().toStdString(), "not yet implemented");
}

// Published formats: (00) N18, (10) X..20, (253) N13+X..17, (8003) N14+X..16, (91) X..90.
TEST(IdentifierTable, AgreesWithPublishedFormats) {
    const struct {
        const char* ai;
        unsigned fixed, variable, separator;
    } cases[] = {
        {"00", 18, 0, 0},   {"01", 14, 0, 0}, {"17", 6, 0, 0},    {"3103", 6, 0, 0},
        {"10", 0, 20, 1},   {"242", 0, 6, 1}, {"253", 13, 17, 1}, {"8003", 14, 16, 1},
        {"7240", 0, 20, 1}, {"91", 0, 90, 1}, {"3699", 6, 0, 0},  {"8026", 18, 0, 1},
    };
    const auto& table = gs1IdTable();
    EXPECT_EQ(table.size(), 686u);
    for (const auto& c : cases) {
        const GS1IdSection& row = table.at(c.ai);
        EXPECT_EQ(row.fixedLength * 10000 + row.variableLength * 10 + row.separator,
                  c.fixed * 10000 + c.variable * 10 + c.separator)
            << c.ai;
    }
    for (const char* key : {"03", "3170", "3580", "3700", "7030", "8014", "89"}) {
        EXPECT_EQ(table.count(key), 0u) << key;
    }
    EXPECT_STREQ(table.at("3109").code, "310n");
    EXPECT_STREQ(table.at("242").code, "241");
}

TEST(ReadableForm, GroupsOfBytesAndBack) {
    const struct {
        std::string raw;
        std::string hrs;
    } cases[] = {
        {"\035A", "(029)A"},
        {"\001\002A\003", "(001002)A(003)"},
        {std::string("a \x7f\xe9\0", 5), "a(032127233000)"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(raw2HRS(c.raw), c.hrs);
    }
    EXPECT_EQ(raw2HRS(std::wstring(L"\x1d\xe9")), L"(029195169)");  // as UTF-8 bytes
    EXPECT_EQ(hrs2Raw(L"(001002)A()(003)"), (std::wstring{1, 2, L'A', 3}));
    for (const wchar_t* malformed : {L"(02)A", L"A)B", L"((029))", L"(0x9)", L"(029"}) {
        EXPECT_EQ(hrs2Raw(malformed), L"") << testing::PrintToString(malformed);
    }
    wchar_t buffer[4] = {L'?', L'?', L'?', L'?'};
    EXPECT_EQ(hrs2Raw(buffer, L"(065)B", 4), 2);
    EXPECT_EQ(std::wstring(buffer, 4), (std::wstring{L'A', L'B', 0, 0}));
    std::fill(std::begin(buffer), std::end(buffer), L'?');
    EXPECT_EQ(hrs2Raw(buffer, L"(065", 4), 0);
    EXPECT_EQ(std::wstring(buffer, 4), std::wstring(4, 0));

    std::wstring text = L"A b\x1d-1\x7f";
    EXPECT_EQ(raw2Printable(text), L"Ab-1");
    EXPECT_EQ(text, L"Ab-1");
}

}  // namespace
