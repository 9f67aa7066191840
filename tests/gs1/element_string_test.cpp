#include <gtest/gtest.h>

#include <string>

#include "layer/GS1/gs1.h"
#include "layer/GS1/gs1_id_table.h"

namespace {

const std::string kNotGS1 = "Not gs1 code";
const std::string kTooLong = "Vary code part exeed standart";

TEST(ElementString, BracketedTextBecomesRawOrComesBackWithTheReason) {
    const std::string twenty(20, 'x');
    const struct {
        std::string text;
        std::string raw;  // what text2gs1raw gives; for a refusal the text itself
        int code;
        std::string message;  // empty: no error
    } cases[] = {
        {"(11)040509(20)12", "{FMC1}110405092012", 0, ""},
        {"(10)ABC(21)123", "{FMC1}10ABC{GS1}21123", 0, ""},
        {"(01)04600822901507(11)161109(30)2434", "{FMC1}010460082290150711161109302434", 0, ""},
        {"(7240)ABC", "{FMC1}ABC", 0, ""},
        {"(01)04600822901507(7240)ABC", "{FMC1}0104600822901507ABC", 0, ""},
        {"", "", 0, ""},
        {" \t ", "", 0, ""},
        {"  (20)12 ", "{FMC1}2012", 0, ""},
        {"(99)", "{FMC1}99", 0, ""},  // an empty variable part, no separator at the end
        {"(10)(21)A", "{FMC1}10{GS1}21A", 0, ""},
        {"(10)" + twenty, "{FMC1}10" + twenty, 0, ""},
        {"(10)" + twenty + "x", "(10)" + twenty + "x", 100, kTooLong},
        // The fixed part is taken first; the limit applies to what follows it.
        {"(253)1234567890123" + std::string(17, 'v'),
         "{FMC1}2531234567890123" + std::string(17, 'v'), 0, ""},
        {"(253)1234567890123" + std::string(18, 'v'), "(253)1234567890123" + std::string(18, 'v'),
         100, kTooLong},
        // The separator follows the table's flag, not the length of the element.
        {"(30)1(10)A", "{FMC1}301{GS1}10A", 0, ""},
        {"(8001)12345678901234(10)A", "{FMC1}800112345678901234{GS1}10A", 0, ""},
        {"(3103)001234(401)CONS(00)123456789012345675",
         "{FMC1}3103001234401CONS{GS1}00123456789012345675", 0, ""},
        // A fixed part takes any characters, brackets too.
        {"(20)(1", "{FMC1}20(1", 0, ""},
        {"(01)1234", "(01)1234", 100, "Unsuffisient code size [8,19]"},
        {" (01)1234", " (01)1234", 100, "Unsuffisient code size [8,19]"},
        {"(10)A(01)123", "(10)A(01)123", 100, "Unsuffisient code size [12,24]"},
        {"(01)04600822901507X", "(01)04600822901507X", 0, kNotGS1},
        {"(20)12X(10)A", "(20)12X(10)A", 0, kNotGS1},  // text between two elements
        {"X(10)A", "X(10)A", 0, kNotGS1},
        {"ABC", "ABC", 0, kNotGS1},
        {"(1)2", "(1)2", 0, kNotGS1},
        {"(7030)123", "(7030)123", 0, kNotGS1},  // 703s has a letter in its key
        {"(01)04600822901507(9999)1", "(01)04600822901507(9999)1", 100, "No such gs1 code: 9999"},
        // A raw form passes unchanged, so that a caller can hand it on.
        {"{FMC1}0104600822901507", "{FMC1}0104600822901507", 0, kNotGS1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        PError error(7, "stale");
        EXPECT_EQ(text2gs1raw(c.text, &error), c.raw);
        EXPECT_EQ(error.code(), c.code);
        EXPECT_EQ(error.message().toStdString(), c.message);
        if (!c.message.empty()) {
            EXPECT_EQ(error.module().toStdString().rfind("layer/GS1/", 0), 0u);
            EXPECT_EQ(error.method().toStdString(), "text2gs1raw");
        }
        EXPECT_EQ(text2gs1raw(c.text, nullptr), c.raw);
    }
}

TEST(ElementString, NoWayBackYet) {
    PError error;
    EXPECT_EQ(gs1raw2text("{FMC1}2012", &error), "");
    EXPECT_EQ(error.code(), 1);
    EXPECT_EQ(error.message().toStdString(), "not yet implemented");
    EXPECT_EQ(gs1raw2text("{FMC1}2012", nullptr), "");
}

// Figures as GS1 publishes them: N18 is 18 digits fixed, X..20 up to 20 characters, N13+X..17
// a fixed part and a variable part behind it.
TEST(IdentifierTable, AgreesWithPublishedFormats) {
    const struct {
        const char* ai;
        unsigned fixed, variable;
        bool separator;
    } cases[] = {
        {"00", 18, 0, false},   {"01", 14, 0, false},  {"17", 6, 0, false},   {"3103", 6, 0, false},
        {"10", 0, 20, true},    {"21", 0, 20, true},   {"242", 0, 6, true},   {"253", 13, 17, true},
        {"8003", 14, 16, true}, {"7240", 0, 20, true}, {"8200", 0, 70, true}, {"91", 0, 90, true},
    };
    const auto& table = gs1IdTable();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.ai);
        const auto row = table.find(c.ai);
        ASSERT_NE(row, table.end());
        EXPECT_EQ(row->second.fixedLength, c.fixed);
        EXPECT_EQ(row->second.variableLength, c.variable);
        EXPECT_EQ(row->second.separator != 0, c.separator);
    }
}

TEST(IdentifierTable, RunsAndTheirEnds) {
    const auto& table = gs1IdTable();
    EXPECT_EQ(table.size(), 686u);
    for (const char* key : {"3100", "3579", "3600", "3699", "360n", "703s", "7022", "719", "99"}) {
        EXPECT_EQ(table.count(key), 1u) << key;
    }
    for (const char* key : {"03", "3170", "3580", "3700", "7030", "7230", "8014", "89", "7"}) {
        EXPECT_EQ(table.count(key), 0u) << key;
    }
    EXPECT_STREQ(table.at("3109").code, "310n");
    EXPECT_STREQ(table.at("3109").description,
                 "Net weight, kilograms (variable measure trade item)");
    EXPECT_STREQ(table.at("02").code, "01");
    EXPECT_STREQ(table.at("242").code, "241");
    EXPECT_STREQ(table.at("3230").code, "");
}

TEST(IdentifierTable, SectionCutsItsTextsToTheirFields) {
    const std::string longText(200, 'a');
    const GS1IdSection section(1, 2, 3, longText.c_str(), "T", nullptr, "");
    EXPECT_EQ(std::string(section.code), longText.substr(0, sizeof(section.code) - 1));
    EXPECT_STREQ(section.title, "T");
    EXPECT_STREQ(section.description, "");
    EXPECT_EQ(section.fixedLength + section.variableLength + section.separator, 6);
}

}  // namespace
