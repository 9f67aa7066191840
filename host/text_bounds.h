#pragma once

#include <cstddef>

// The longest texts taken from the host, in 16-bit units (docs/limits.md). Each lies far above
// anything its setting can mean; a longer text is measured no further than one unit past its
// bound and never copied whole.

// A family name (Font, FindFont), an AspectRatio and a locale name given to SetLocale.
constexpr std::size_t kLongestShortText = 256;
// FileName: PATH_MAX of Linux and Android, in characters.
constexpr std::size_t kLongestFileName = 4096;
// CodeValue, read this far and no further: the longest Base64 form of a value a picture can
// show is about 9,500 characters.
constexpr std::size_t kLongestCodeValue = std::size_t(1) << 20;
// CodeText: room for the text of the longest CodeValue with what a symbology adds to it.
constexpr std::size_t kLongestCodeText = std::size_t(2) << 20;
// LogoImage: Base64 of a PNG file of 6 MiB, 1.5 bytes a pixel of the largest logo taken.
constexpr std::size_t kLongestLogoText = std::size_t(8) << 20;
