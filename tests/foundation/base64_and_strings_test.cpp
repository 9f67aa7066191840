#include <gtest/gtest.h>

#include <string>

#include "layer/foundation/base64.h"
#include "layer/foundation/string_helpers.h"

namespace {

TEST(Base64, EncodesWithPaddingAndWideFormsGoThroughUtf8) {
    EXPECT_EQ(base64_encode(std::string("abc")), "YWJj");
    EXPECT_EQ(raw2Base64(std::string("ab")), "YWI=");
    EXPECT_EQ(b64encode("a", 1), "YQ==");
    EXPECT_EQ(base64_encode("", 0), "");
    EXPECT_EQ(base64_encode(std::string("\xFB\xFF\xBF", 3)), "+/+/");
    // Wide forms go through UTF-8; the byte 0xFF between "A" and "B" is no UTF-8.
    EXPECT_EQ(raw2Base64(std::wstring(L"\u0416")), L"0JY=");
    EXPECT_EQ(base642Raw(std::wstring(L"0JY=")), L"\u0416");
    EXPECT_EQ(base642Raw(std::wstring(L"Qf9C")), L"AB");
}

TEST(Base64, DecodesBothAlphabetsWithOrWithoutPadding) {
    struct Case {
        const char* text;
        std::string bytes;
    };
    const Case cases[] = {
        {"YWJj", "abc"},
        {"YWI=", "ab"},
        {"YQ==", "a"},
        {"YWI", "ab"},                         // missing "=" before a three-character tail
        {"YWJjYQ", std::string("abca\0", 5)},  // an unpadded two-character tail gives two bytes
        {"+/+/", "\xFB\xFF\xBF"},
        {"-_-_", "\xFB\xFF\xBF"},
        {"", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(base64_decode(std::string(c.text)), c.bytes) << c.text;
    }
    const std::string all = "any carnal pleasure.\x01\xFE";
    EXPECT_EQ(base642Raw(raw2Base64(all)), all);
}

TEST(Base64, DecoderSizesByLengthAndSkipsJunkBetweenGroups) {
    // The size counts the skipped characters: the groups decode, and what the walk doesn't
    // reach stays zero, while the tail is read at its fixed place.
    EXPECT_EQ(base64_decode(std::string("YWJj\n\n\n\nYWJj")), std::string("abcabc\0\0\0", 9));
    EXPECT_EQ(base64_decode(std::string("YWJj\r\nYWJjYWJj")), "abcabcabc&0");
    // Junk inside a group slides the group on by a place.
    EXPECT_EQ(base64_decode(std::string("YW\nJjYWJj")), std::string("X\002cabc\214\0", 8));
    EXPECT_EQ(base64_decode(std::string("!!!!")), std::string(3, '\0'));
    EXPECT_EQ(base64_decode(std::string("====")), std::string(1, '\0'));
    EXPECT_EQ(b64decode(nullptr, 4), "");
}

TEST(StringHelpers, TrimAndReplaceComeToAnEnd) {
    std::string padded = " \t ab c \n";
    EXPECT_EQ(trim(padded), "ab c");
    EXPECT_EQ(padded, "ab c");
    std::wstring blanks = L"   ";
    EXPECT_EQ(trim(blanks), L"");
    EXPECT_EQ(trimed(std::wstring(L" x ")), L"x");
    EXPECT_EQ(replace(std::string("aXa"), "a", "aa"), "aaXaa");
    EXPECT_EQ(replace(std::wstring(L"a-b-c"), L"-", L""), L"abc");
    EXPECT_EQ(replace(std::string("abc"), "", "z"), "abc");
    EXPECT_EQ(str_tolower(std::wstring(L"AbC")), L"abc");
}

}  // namespace
