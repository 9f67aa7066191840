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

// The logo of a PNG file as 8-bit RGBA pixels; an empty picture for a file that doesn't decode
// or whose header names a logo out of the bounds above.
PImage decodeLogo(const unsigned char* png, size_t size);

// Where the symbol stands: its top left corner and its size.
struct SymbolArea {
    int x;
    int y;
    unsigned width;
    unsigned height;
};

// The area that a symbol drawn at `drawn` on a canvas of canvasWidth x canvasHeight takes on
// the delivered picture, which is that canvas turned clockwise by rotation (0, 90, 180 or 270).
SymbolArea deliveredArea(const SymbolArea& drawn, unsigned canvasWidth, unsigned canvasHeight,
                         unsigned rotation);

// Stamps the logo, upright, over the middle of the symbol's area on the delivered picture:
// scaled so that its longer side takes percent (at most 100) of the area's same side, pixels
// copied as they are. No valid logo or no percent above 0 draws nothing; true when it drew.
bool stampLogo(PImage& picture, const PImage& logo, double percent, const SymbolArea& symbol);

}  // namespace BarcodeVelko
