#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/text_forms.h"
#include "host/wchar_wrapper.h"

namespace {

using Units = std::vector<unsigned short>;

// Hands out blocks that it keeps, or refuses all.
struct TestMemory : IVelkoMemory {
    bool succeed = true;
    std::vector<std::unique_ptr<unsigned char[]>> blocks;
    bool allocate(void** where, unsigned long bytes) override {
        if (succeed) {
            blocks.push_back(std::make_unique<unsigned char[]>(bytes));
            *where = blocks.back().get();
        }
        return succeed;
    }
};

VelkoVariant variant(unsigned short type) {
    VelkoVariant value{};
    value.type = type;
    return value;
}

TEST(TextForms, ToHostKeepsLow16BitsAndTheTerminator) {
    unsigned short* host = nullptr;
    EXPECT_EQ(convToShortWchar(&host, L"a\U0001F600b"), 4u);
    EXPECT_EQ(Units(host, host + 4), (Units{'a', 0xF600, 'b', 0}));
    delete[] host;

    // A caller's buffer is filled in place, exactly len units, no terminator added.
    unsigned short buffer[3] = {0xFFFF, 0xFFFF, 0xFFFF};
    unsigned short* into = buffer;
    EXPECT_EQ(convToShortWchar(&into, L"xyz", 2), 2u);
    EXPECT_EQ(into, buffer);
    EXPECT_EQ(Units(buffer, buffer + 3), (Units{'x', 'y', 0xFFFF}));
}

TEST(TextForms, FromHostIntoBufferStopsAtTheTerminatorAndZeroesTheRest) {
    const unsigned short source[] = {'a', 'b', 0, 'x', 'y'};
    wchar_t buffer[5] = {L'#', L'#', L'#', L'#', L'#'};
    wchar_t* into = buffer;
    EXPECT_EQ(convFromShortWchar(&into, source, 5), 5u);
    EXPECT_EQ(std::wstring(buffer, 5), std::wstring(L"ab\0\0\0", 5));

    wchar_t* fresh = nullptr;
    EXPECT_EQ(convFromShortWchar(&fresh, source), 3u);
    EXPECT_EQ(std::wstring(fresh, 3), std::wstring(L"ab\0", 3));
    delete[] fresh;
}

TEST(TextForms, FromHostAsStringMeasuresOrTakesExactlyTheLength) {
    const unsigned short source[] = {'a', 0, 'b', 0};
    EXPECT_EQ(convFromShortWchar(nullptr), L"");
    EXPECT_EQ(convFromShortWchar(nullptr, 3), L"");
    EXPECT_EQ(convFromShortWchar(source), L"a");
    EXPECT_EQ(convFromShortWchar(source + 1), L"");
    EXPECT_EQ(convFromShortWchar(source, 3), std::wstring(L"a\0b", 3));
    EXPECT_EQ(getLenShortWcharStr(nullptr), 0u);
    EXPECT_EQ(WcharWrapper::getStrLen(source + 2), 1u);
    // Bounded, a text is read no further than one unit past the limit: here, no terminator.
    const unsigned short unended[] = {'a', 'b', 'c'};
    EXPECT_EQ(boundedLenShortWcharStr(unended, 2), 3u);
    EXPECT_EQ(boundedLenShortWcharStr(source, 5), 1u);
    EXPECT_EQ(boundedLenShortWcharStr(nullptr, 5), 0u);

    unsigned short text[] = {0xD83D, 0xDE00, 'z', 0};
    VelkoVariant value = variant(VariantWStr);
    value.str.chars = text;
    value.str.length = 3;
    // A surrogate pair arrives as two characters, which UTF-8 then drops.
    EXPECT_EQ(convFromShortWchar(value), (std::wstring{0xD83D, 0xDE00, L'z'}));
    EXPECT_EQ(wstr2str(convFromShortWchar(value)), "z");
}

TEST(TextForms, AllocAndConvertReportsTheLengthEvenWithoutMemory) {
    unsigned int length = 99;
    EXPECT_EQ(AllocAndConvert(nullptr, L"abc", &length), nullptr);
    EXPECT_EQ(length, 3u);
    TestMemory failing;
    failing.succeed = false;
    EXPECT_EQ(AllocAndConvert(&failing, L"abcd", &length), nullptr);
    EXPECT_EQ(length, 4u);

    TestMemory memory;
    const VelkoVariant value = AllocAndConvertVariant(&memory, L"\u0416x");
    ASSERT_EQ(value.type, VariantWStr);
    EXPECT_EQ(Units(value.str.chars, value.str.chars + value.str.length + 1),
              (Units{0x0416, 'x', 0}));
    EXPECT_EQ(AllocAndConvertVariant(nullptr, L"abc").str.chars, nullptr);
}

// Octal escapes for the bytes, so that no letter after them is taken for a digit.
TEST(TextForms, Utf8DropsOnlyWhatCannotBeConverted) {
    const std::wstring wide{L'a', 0xD800, L'b', 0x110000, 0x1F600, L'c'};
    EXPECT_EQ(wstr2str(wide), "ab\360\237\230\200c");
    EXPECT_EQ(wstrtostr(L"\u0416"), "\xD0\x96");
    EXPECT_EQ(wba2ba(L"\u0416"), "\xD0\x96");
    const std::pair<const char*, std::wstring> cases[] = {
        {"a\200b", L"ab"},        // lone continuation byte
        {"a\303bc", L"abc"},      // lead byte without its continuation: the next one survives
        {"a\342\202b", L"ab"},    // cut three-byte sequence
        {"\355\240\200x", L"x"},  // encoded surrogate
        {"\300\257y", L"y"},      // overlong "/"
        {"\360\237\230", L""},    // truncated at the end
        {"\320\226\360\237\230\200", std::wstring{0x0416, 0x1F600}},
    };
    for (const auto& [utf8, expected] : cases) {
        EXPECT_EQ(str2wstr(utf8), expected) << utf8;
    }
    EXPECT_EQ(strtowstr("\xD0\x96"), L"\u0416");
    EXPECT_EQ(ba2wba("\xD0\x96"), L"\u0416");
}

// The object reads numbers by its own rules; these readers are for other callers: one pass.
TEST(TextForms, VariantReadersTakeNumbersOnly) {
    VelkoVariant number = variant(5);
    number.doubleValue = -12.9;
    int asInt = 1;
    unsigned long asDword = 1;
    EXPECT_TRUE(convVarToInt(number, asInt) && convVarToDWORD(number, asDword));
    EXPECT_EQ(std::pair(asInt, asDword), std::pair(-12, 4294967284ul));
    const VelkoVariant text = variant(VariantWStr);
    EXPECT_FALSE(convVarToInt(text, asInt) || convVarToDWORD(text, asDword));
}

// The object hands its messages to the host in the host's form.
TEST(WcharWrapper, HoldsBothFormsOfOneString) {
    const WcharWrapper fromWide(L"a\U0001F600");
    EXPECT_EQ(std::wstring(fromWide.wideString()), L"a\U0001F600");
    EXPECT_EQ(Units(fromWide.hostString(), fromWide.hostString() + 3), (Units{'a', 0xF600, 0}));
    const WcharWrapper none(static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(none.hostString(), nullptr);
}

}  // namespace
