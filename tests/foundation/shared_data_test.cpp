#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "layer/foundation/p_byte_array.h"
#include "layer/foundation/p_string.h"

namespace {

const wchar_t* firstChar(const PString& text) {
    return &*text.begin();
}

TEST(PString, ConstructorsDecodeAndCut) {
    EXPECT_EQ(PString("abc", 2).toStdWString(), L"ab");
    EXPECT_EQ(PString("abc", 0).toStdWString(), L"abc");
    EXPECT_EQ(PString(L"abc", 1).toStdWString(), L"a");
    EXPECT_EQ(PString(std::string("\xD0\x96\xFF")).toStdWString(), L"\u0416");
    EXPECT_EQ(PString('z', 3).toStdWString(), L"zzz");
    EXPECT_EQ(PString('z', -1).size(), 0);
    EXPECT_EQ(PString(static_cast<const char*>(nullptr)).size(), 0);
    EXPECT_EQ(PString(L"\U0001F600").toStdString(), "\xF0\x9F\x98\x80");
    EXPECT_EQ(PString::format("%s-%03d", "n", 7).toStdWString(), L"n-007");
    EXPECT_EQ(PString::format("%s", "").size(), 0);
}

TEST(PString, CopiesShareUntilOneWrites) {
    const PString original(L"abc");
    PString copy = original;
    EXPECT_EQ(firstChar(copy), firstChar(original));

    copy += PString(L"d");
    EXPECT_EQ(original.toStdWString(), L"abc");
    EXPECT_EQ(copy.toStdWString(), L"abcd");

    // Every writing access detaches: indexing, at, iterators, replace, removeFromRight.
    const auto writes = std::vector<void (*)(PString&)>{
        [](PString& s) { s[0] = L'x'; },
        [](PString& s) { s.at(1) = L'x'; },
        [](PString& s) { *s.begin() = L'x'; },
        [](PString& s) { *s.rbegin() = L'x'; },
        [](PString& s) { s.replace(PString(L"a"), PString(L"x")); },
        [](PString& s) { s.removeFromRight(PString(L"a")); },
    };
    for (auto write : writes) {
        PString shared = original;
        write(shared);
        EXPECT_EQ(original.toStdWString(), L"abc");
        EXPECT_NE(shared, original);
    }

    // Reads leave the sharing alone.
    PString reader = original;
    EXPECT_EQ(std::as_const(reader)[2], L'c');
    EXPECT_EQ(std::as_const(reader).at(0), L'a');
    EXPECT_EQ(reader.hash(), original.hash());
    EXPECT_EQ(firstChar(reader), firstChar(original));
    EXPECT_THROW(std::as_const(reader).at(3), std::out_of_range);
    EXPECT_THROW(reader.at(3), std::out_of_range);
}

// Nothing on the barcode path searches or edits a text in place: one pass.
TEST(PString, SearchAndEdit) {
    const PString text(L"abcabc");
    EXPECT_EQ(text.find(PString(L"bc"), 2), 4);
    EXPECT_EQ(text.find(PString(L"x")), -1);
    EXPECT_TRUE(text.contains(PString(L"ca")));
    // A replacement that starts with what it replaces is stepped over by one character.
    EXPECT_EQ(PString(L"aXa").replace(PString(L"a"), PString(L"ab")).toStdWString(), L"abXab");
    EXPECT_EQ(PString(L"abc").replace(PString(), PString(L"z")).toStdWString(), L"abc");
    EXPECT_EQ(PString(L"cab").removeFromRight(PString(L"ab")).toStdWString(), L"cab");
    PString self(L"ab");
    self += self;
    EXPECT_EQ((self + PString("y")).toStdWString(), L"ababy");
    EXPECT_NE(PString(L"ab").hash(), PString(L"ba").hash());
}

TEST(PByteArray, ConstructorsFillCopyAndTerminate) {
    const PByteArray sevens(7, 3);
    ASSERT_EQ(sevens.size(), 3ul);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(sevens.constData()), 3), "\7\7\7");
    EXPECT_EQ(PByteArray("ab").size(), 3ul);
    EXPECT_EQ(PByteArray("ab").constData()[2], 0);
    EXPECT_TRUE(PByteArray(7, 0).isEmpty());
    EXPECT_EQ(PByteArray(7, 0).constData(), nullptr);

    unsigned char source[] = {1, 2, 3};
    const PByteArray copied(source, 3);
    source[0] = 9;
    EXPECT_EQ(copied.constData()[0], 1);
    EXPECT_TRUE(PByteArray(source, 0).isEmpty());

    PByteArray from(5, 2);
    PByteArray to(std::move(from));
    EXPECT_EQ(to.size(), 2ul);
    EXPECT_TRUE(from.isEmpty());
    EXPECT_EQ(from.constData(), nullptr);
}

TEST(PByteArray, WritesDetachReadsShareAndTheCursorStaysInRange) {
    const PByteArray original(1, 4);
    PByteArray copy = original;
    EXPECT_EQ(copy.constData(), original.constData());
    EXPECT_EQ(std::as_const(copy)[0], 1);
    EXPECT_EQ(std::as_const(copy).data(), original.constData());

    copy.data()[0] = 2;
    EXPECT_NE(copy.constData(), original.constData());
    EXPECT_EQ(original.constData()[0], 1);

    PByteArray indexed = original;
    indexed[3] = 8;
    EXPECT_EQ(original[3], 1);
    PByteArray assigned;
    assigned = original;
    **assigned = 6;
    EXPECT_EQ(original[0], 1);
    EXPECT_EQ(assigned[0], 6);

    // Nothing on the barcode path moves the cursor: one pass over it.
    const unsigned char bytes[] = {10, 11, 12};
    PByteArray array(bytes, 3);
    --array;
    EXPECT_EQ(**array, 10);
    ++(++(++(++array)));
    array--;
    PByteArray other = array;
    other++;
    EXPECT_EQ(**array, 11);
    EXPECT_EQ(array[1], 12);
    EXPECT_EQ(*other.constData(), 10);
    EXPECT_EQ(other[0], 12);
    PByteArray empty;
    ++empty;
    --empty;
    EXPECT_EQ(*empty, nullptr);
}

}  // namespace
