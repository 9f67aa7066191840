#pragma once

#include <cstddef>

class PImage;

namespace BarcodeVelko {

// The largest logo that a property write takes, checked on the PNG header before anything is
// decoded (see docs/limits.md).
constexpr unsigned kMaxLogoSide = 4096;
constexpr unsigned long kMaxLogoPixels = 4ul * 1024 * 1024;

// Whether a PNG's header names a logo within the bounds above, whose decoded bytes the file
// can really hold. False for anything that isn't a PNG header.
bool logoPngAcceptable(const unsigned char* png, size_t size);

// Stamps the logo over the middle of the symbol's area on the finished picture: scaled so that
// its longer side takes percent (at most 100) of the symbol's same side, pixels copied as they
// are. x and y are where the symbol starts on the picture. No valid logo or no percent above 0
// draws nothing.
void stampLogo(PImage& picture, const PImage& logo, double percent, int x, int y,
               unsigned rootWidth, unsigned rootHeight);

}  // namespace BarcodeVelko
