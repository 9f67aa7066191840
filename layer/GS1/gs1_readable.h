#pragma once

#include <string>

// Raw bytes in readable form and back. A run of bytes that can't be shown becomes one group of
// three decimal digits a byte: the bytes 1, 2, 'A', 3 read "(001002)A(003)".

// A byte that is shown as a number: 128 to 255 (negative values count as c + 256), control
// characters, blank and 127.
bool isGS(int c);

std::string raw2HRS(const char* raw, int length);
std::string raw2HRS(const std::string& raw);
// The wide forms work on the UTF-8 bytes of the text.
std::wstring raw2HRS(const wchar_t* raw, int length);
std::wstring raw2HRS(const std::wstring& raw);

// The way back; empty for malformed text: a bracket out of place, a group with anything but
// digits, with a count of digits that isn't a multiple of three, never closed, or with a
// number that is no character.
std::wstring hrs2Raw(const std::wstring& hrs);
// The same into buffer, at most size characters, zero-filled behind them; gives the number
// written. Malformed text leaves the whole buffer zeroed.
int hrs2Raw(wchar_t* buffer, const std::wstring& hrs, int size);

// The text without the characters that aren't graphic: a character stays if it is one byte in
// the current locale and that byte is a letter, a digit or punctuation.
std::wstring raw2Printable(const wchar_t* text, int length);
// In place; gives a copy of the result.
std::wstring raw2Printable(std::wstring& text);
