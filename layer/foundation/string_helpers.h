#pragma once

#include <string>

// White space and case follow the global locale.

// Trims in place and gives a copy of the result.
std::string trim(std::string& text);
std::wstring trim(std::wstring& text);
std::string trimed(const std::string& text);
std::wstring trimed(const std::wstring& text);

// Every occurrence, left to right; what was put in is not searched again.
std::string replace(const std::string& text, const std::string& from, const std::string& to);
std::wstring replace(const std::wstring& text, const std::wstring& from, const std::wstring& to);

std::string str_tolower(const std::string& text);
std::wstring str_tolower(const std::wstring& text);
