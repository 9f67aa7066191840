#pragma once

#include <string>

namespace VelkoHost {

// The host side's own text handling: UTF-16 units as the platform has them.
std::u16string fromHostString(const unsigned short* units);
std::u16string toUtf16(const std::string& utf8);
std::string toUtf8(const std::u16string& units);

}  // namespace VelkoHost
