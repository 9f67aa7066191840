#pragma once

#include <cstddef>
#include <string>

#include "layer/foundation/p_shared_data_ptr.h"

class PStringPrivate;

// Text with copy-on-write sharing, held as a wide string whatever it was made from. Narrow
// input is UTF-8; bytes that aren't valid UTF-8 are dropped.
class PString {
public:
    using iterator = std::wstring::iterator;
    using const_iterator = std::wstring::const_iterator;
    using reverse_iterator = std::wstring::reverse_iterator;
    using const_reverse_iterator = std::wstring::const_reverse_iterator;

    PString();
    PString(const std::wstring& text);
    PString(const std::string& text);
    // A length of 0 takes the text up to its terminator.
    PString(const wchar_t* text, unsigned int length = 0);
    PString(const char* text, unsigned int length = 0);
    PString(char character, int count);
    // No move: a copy costs one count, and every string keeps a block.
    PString(const PString& other);
    PString& operator=(const PString& other);
    ~PString();

    int size() const;
    bool isEmpty() const { return size() == 0; }
    std::string toStdString() const;
    std::wstring toStdWString() const;

    // at() throws std::out_of_range past the end; operator[] doesn't check.
    wchar_t at(int index) const;
    wchar_t& at(int index);
    wchar_t operator[](int index) const;
    wchar_t& operator[](int index);

    // The position of text at or behind from, or -1.
    int find(const PString& text, int from = 0) const;
    bool contains(const PString& text) const { return find(text) >= 0; }
    std::size_t hash() const;

    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;
    reverse_iterator rbegin();
    reverse_iterator rend();
    const_reverse_iterator rbegin() const;
    const_reverse_iterator rend() const;

    // Each search goes on one character behind where the last match began, so a to that holds
    // from beyond its first character never ends.
    PString& replace(const PString& from, const PString& to);
    // Despite the name, removes text only where the string begins with it.
    PString& removeFromRight(const PString& text);
    PString& operator+=(const PString& text);

    bool operator==(const PString& other) const;
    bool operator!=(const PString& other) const { return !(*this == other); }

    static PString format(const char* format, ...) __attribute__((format(printf, 1, 2)));

private:
    const std::wstring& text() const;
    std::wstring& text();

    PSharedDataPtr<PStringPrivate> d;
};

PString operator+(const PString& left, const PString& right);
