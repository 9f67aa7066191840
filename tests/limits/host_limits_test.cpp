// What a host sees of the hardening: FindFont takes only a name, texts are bounded, and values
// too long for any picture are answered as before, without the trees they used to cost.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;
using VelkoHost::Value;

namespace {

constexpr long kFontAt = 1;
constexpr long kFindFont = 2;

const ExtensionLibrary& library() {
    static const ExtensionLibrary loaded(ExtensionLibrary::defaultPath());
    return loaded;
}

// FindFont reads its parameter as a name only when it comes as text.
TEST(MethodParameters, FindFontTakesOnlyText) {
    ASSERT_TRUE(library().loaded()) << library().error();
    ExtensionSession session(library());
    Value first;
    ASSERT_TRUE(session.call(kFontAt, {0}, first));
    ASSERT_TRUE(std::holds_alternative<std::string>(first));
    const struct {
        Value parameter;
        bool answered;
        Value result;
    } cases[] = {
        {first, true, true},
        {std::string("No Such Font"), true, false},
        // Once read as a pointer to a name: 5 is no address.
        {5, false, Value()},
        {2.5, false, Value()},
        {false, false, Value()},
        {Value(), false, Value()},
    };
    for (const auto& c : cases) {
        Value result;
        EXPECT_EQ(session.call(kFindFont, {c.parameter}, result), c.answered)
            << c.parameter.index();
        EXPECT_EQ(result, c.result) << c.parameter.index();
    }
    EXPECT_EQ(session.memory().outstanding(), 0u);
    EXPECT_FALSE(session.sawBufferFault());
}

std::string sized(std::string head, std::size_t length, char fill) {
    head.resize(length, fill);
    return head;
}

// A text at its bound is taken; one unit more is answered as the setting answers a bad value,
// with its message where it has one, and leaves the setting as it was.
TEST(HostTexts, PastTheirBoundsAreBadValues) {
    ASSERT_TRUE(library().loaded()) << library().error();
    ExtensionSession session(library());
    Value font;
    ASSERT_TRUE(session.call(kFontAt, {0}, font));
    const struct {
        const char* property;
        std::size_t bound;
        std::string head;
        char fill;
        Value atBound;  // read back after the text at the bound; monostate: the text itself
        Value valid;
        bool reported;
    } rows[] = {
        {"Font", 256, "", 'F', std::string("default"), font, true},
        {"AspectRatio", 256, "5:7", ' ', std::string("5:7"), std::string("3:2"), true},
        {"FileName", 4096, "/", 'f', Value(), std::string("label.png"), false},
        {"CodeText", 2u << 20, "", 'T', Value(), std::string("text"), false},
    };
    for (const auto& row : rows) {
        const std::string atBound = sized(row.head, row.bound, row.fill);
        EXPECT_TRUE(session.set(row.property, atBound)) << row.property;
        EXPECT_EQ(session.get(row.property), std::holds_alternative<std::monostate>(row.atBound)
                                                 ? Value(atBound)
                                                 : row.atBound)
            << row.property;
        EXPECT_TRUE(session.set(row.property, row.valid)) << row.property;
        const std::size_t errors = session.host().errors.size();
        EXPECT_FALSE(session.set(row.property, sized(row.head, row.bound + 1, row.fill)))
            << row.property;
        EXPECT_EQ(session.host().errors.size(), errors + (row.reported ? 1 : 0)) << row.property;
        EXPECT_EQ(session.get(row.property), row.valid) << row.property;
    }
    Value known;
    EXPECT_TRUE(session.call(kFindFont, {sized("", 256, 'F')}, known));
    EXPECT_EQ(known, Value(false));
    EXPECT_FALSE(session.call(kFindFont, {sized("", 257, 'F')}, known));
    EXPECT_EQ(session.memory().outstanding(), 0u);
}

// The logo's Base64 text is taken up to 8 Mi characters, junk between the groups included; a
// longer one leaves no logo, as a picture that doesn't decode does.
TEST(HostTexts, LogoTextPastItsBoundIsNoLogo) {
    ASSERT_TRUE(library().loaded()) << library().error();
    std::ifstream file(std::string(std::getenv("VELKO_SOURCE_DIR")) + "/tests/host/logo.b64");
    const std::string logo((std::istreambuf_iterator<char>(file)),
                           std::istreambuf_iterator<char>());
    ASSERT_FALSE(logo.empty());
    ExtensionSession session(library());
    session.set("CodeAuto", false);
    session.set("CodeType", 16);
    session.set("Width", 200);
    session.set("Height", 200);
    const auto picture = [&](const std::string& text) {
        EXPECT_TRUE(session.set("LogoImage", text));
        session.set("LogoSizePercentFromBarcode", 30);
        return session.getBarcode();
    };
    const std::vector<unsigned char> plain = picture("");
    EXPECT_NE(picture(sized(logo, 8u << 20, '*')), plain);
    EXPECT_EQ(picture(sized(logo, (8u << 20) + 1, '*')), plain);
    EXPECT_TRUE(session.host().errors.empty());
}

struct Answer {
    bool written;
    int codeType;
    std::vector<unsigned char> picture;
    std::string codeText;
};

// type -1: the object searches the type itself.
Answer answerTo(int type, const std::string& value, int width = 300) {
    ExtensionSession session(library());
    if (type >= 0) {
        session.set("CodeAuto", false);
        session.set("CodeType", type);
    }
    session.set("Width", width);
    Answer answer;
    answer.written = session.set("CodeValue", value);
    answer.picture = session.getBarcode();
    EXPECT_EQ(std::get<int>(session.get("Result")), 1) << type;
    answer.codeType = std::get<int>(session.get("CodeType"));
    answer.codeText = std::get<std::string>(session.get("CodeText"));
    return answer;
}

// A value one character longer than the longest that a picture can show gets the answer that
// building its tree gave: the symbologies whose symbol grows with the value take it, and their
// picture says it doesn't fit; the others refuse it.
TEST(LongValues, GetTheAnswersTheirTreesGave) {
    ASSERT_TRUE(library().loaded()) << library().error();
    const std::vector<unsigned char> tooSmall = answerTo(4, "ABC", 10).picture;
    const std::vector<unsigned char> invalid = answerTo(1, "ABC").picture;
    ASSERT_NE(tooSmall, invalid);
    const std::string digits(8001, '7');
    const std::string letters(8001, 'A');
    const std::string pairs(8002, '3');
    const std::string codabar = "A" + std::string(8005, '1') + "B";
    std::string cyrillic;
    for (int i = 0; i < 8001; ++i) {
        cyrillic += "Ж";
    }
    const struct {
        int type;
        const std::string& value;
        int codeType;
        const std::vector<unsigned char>& picture;
        bool textIsValue;
    } cases[] = {
        {4, letters, 4, tooSmall, true},
        {3, digits, 3, tooSmall, true},
        {13, codabar, 13, tooSmall, true},
        {13, digits, 13, invalid, false},
        // An odd count of digits with the check digit: Interleaved 2 of 5 takes the value as
        // raw, Standard 2 of 5 not at all.
        {8, pairs, 8, tooSmall, true},
        {7, pairs, 7, invalid, false},
        {4, cyrillic, 4, invalid, false},
        {16, digits, 16, invalid, false},
        {1, digits, 1, invalid, false},
        {20, letters, 20, invalid, false},
        {-1, digits, 2, tooSmall, false},
        {-1, letters, 2, tooSmall, false},
    };
    for (const auto& c : cases) {
        const Answer answer = answerTo(c.type, c.value);
        EXPECT_TRUE(answer.written) << c.type;
        EXPECT_EQ(answer.codeType, c.codeType) << c.type;
        EXPECT_TRUE(answer.picture == c.picture) << c.type << " " << c.codeType;
        if (c.textIsValue) {
            EXPECT_EQ(answer.codeText, c.value) << c.type;
        }
    }
    // Past what the host's text is read to, the answer stays the same.
    const Answer huge = answerTo(4, std::string((1 << 20) + 100, 'A'));
    EXPECT_TRUE(huge.written);
    EXPECT_TRUE(huge.picture == tooSmall);
}

}  // namespace
