#pragma once

#include <string>

// The host's names of the properties and methods, by index; alias 0 is English, 1 Russian.
constexpr long kPropCount = 43;
constexpr long kMethodCount = 3;

extern const wchar_t* const g_aszPropNames[2][kPropCount];
extern const wchar_t* const g_aszMethodNames[2][kMethodCount];

// The index of name in the English table, else in the Russian one, or -1. Case counts.
template <long Count>
long findName(const wchar_t* const (&tables)[2][Count], const std::wstring& name) {
    for (const auto& language : tables) {
        for (long i = 0; i < Count; ++i) {
            if (name == language[i]) {
                return i;
            }
        }
    }
    return -1;
}
