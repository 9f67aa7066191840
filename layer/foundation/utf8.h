#pragma once

#include <string>

// UTF-8 conversions drop what can't be converted (surrogates, code points from 0x110000 up,
// broken bytes) and keep the rest; they never throw.
std::string wstr2str(const std::wstring& text);
std::wstring str2wstr(const std::string& text);

inline std::string wstrtostr(const std::wstring& text) {
    return wstr2str(text);
}
inline std::string wba2ba(const std::wstring& text) {
    return wstr2str(text);
}
inline std::wstring strtowstr(const std::string& text) {
    return str2wstr(text);
}
inline std::wstring ba2wba(const std::string& text) {
    return str2wstr(text);
}
