#include "layer/GS1/gs1_readable.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include "layer/foundation/utf8.h"

bool isGS(int c) {
    if (c < 0) {
        c += 256;
    }
    return c <= ' ' || c >= 127;
}

std::string raw2HRS(const char* raw, int length) {
    std::string hrs;
    if (!raw) {
        return hrs;
    }
    bool inGroup = false;
    for (int i = 0; i < length; ++i) {
        const unsigned char c = static_cast<unsigned char>(raw[i]);
        if (!isGS(c)) {
            if (inGroup) {
                hrs += ')';
                inGroup = false;
            }
            hrs += static_cast<char>(c);
            continue;
        }
        if (!inGroup) {
            hrs += '(';
            inGroup = true;
        }
        char digits[4];
        std::snprintf(digits, sizeof(digits), "%03u", static_cast<unsigned>(c));
        hrs += digits;
    }
    if (inGroup) {
        hrs += ')';
    }
    return hrs;
}

std::string raw2HRS(const std::string& raw) {
    return raw2HRS(raw.data(), static_cast<int>(raw.size()));
}

std::wstring raw2HRS(const wchar_t* raw, int length) {
    if (!raw || length <= 0) {
        return std::wstring();
    }
    return str2wstr(raw2HRS(wstr2str(std::wstring(raw, static_cast<size_t>(length)))));
}

std::wstring raw2HRS(const std::wstring& raw) {
    return str2wstr(raw2HRS(wstr2str(raw)));
}

std::wstring hrs2Raw(const std::wstring& hrs) {
    std::wstring raw;
    bool inGroup = false;
    std::wstring digits;
    for (const wchar_t c : hrs) {
        if (!inGroup) {
            if (c == L')') {
                return std::wstring();
            }
            if (c == L'(') {
                inGroup = true;
            } else {
                raw += c;
            }
            continue;
        }
        if (c == L')') {
            if (!digits.empty()) {
                return std::wstring();
            }
            inGroup = false;
            continue;
        }
        if (c < L'0' || c > L'9') {
            return std::wstring();
        }
        digits += c;
        if (digits.size() == 3) {
            const wint_t character =
                std::btowc(static_cast<int>(std::wcstol(digits.c_str(), nullptr, 10)));
            if (character == WEOF) {
                return std::wstring();
            }
            raw += static_cast<wchar_t>(character);
            digits.clear();
        }
    }
    return inGroup ? std::wstring() : raw;
}

int hrs2Raw(wchar_t* buffer, const std::wstring& hrs, int size) {
    if (!buffer || size <= 0) {
        return 0;
    }
    std::wmemset(buffer, 0, static_cast<size_t>(size));
    const std::wstring raw = hrs2Raw(hrs);
    const size_t count = std::min(raw.size(), static_cast<size_t>(size));
    std::wmemcpy(buffer, raw.data(), count);
    return static_cast<int>(count);
}

namespace {

bool isGraphic(wchar_t c) {
    const int byte = std::wctob(static_cast<wint_t>(c));
    return byte != EOF && (std::isalnum(byte) || std::ispunct(byte));
}

}  // namespace

std::wstring raw2Printable(const wchar_t* text, int length) {
    std::wstring printable;
    for (int i = 0; text && i < length; ++i) {
        if (isGraphic(text[i])) {
            printable += text[i];
        }
    }
    return printable;
}

std::wstring raw2Printable(std::wstring& text) {
    text = raw2Printable(text.data(), static_cast<int>(text.size()));
    return text;
}
