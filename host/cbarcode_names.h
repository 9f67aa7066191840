#pragma once

// The host's names of the properties and methods, by index; alias 0 is English, 1 Russian.
constexpr long kPropCount = 43;
constexpr long kMethodCount = 3;

extern const wchar_t* const g_aszPropNames[2][kPropCount];
extern const wchar_t* const g_aszMethodNames[2][kMethodCount];

// The index of name in one language's table, or -1. Case counts.
long findName(const wchar_t* const* table, long count, const wchar_t* name);
