#pragma once

#include <functional>
#include <string>
#include <vector>

#include <ZXing/BarcodeFormat.h>
#include <ZXing/DecodeHints.h>

#include "tests/support/tree_checks.h"

namespace BarcodeVelko {
class BarcodeFacade2;
}

// Test helpers: a facade's picture as the host gets it (draw, then the PNG step), decoded back
// into pixels, and read by zxing-cpp; with them come the tree helpers.
//
//     VelkoTest::Picture picture = VelkoTest::draw(3, L"ABC-123", 300, 100);
//     EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::Code39), "ABC-123");
namespace VelkoTest {

// 8-bit RGBA, rows top to bottom without gaps, as LodePNG decodes it.
struct Picture {
    unsigned width = 0;
    unsigned height = 0;
    std::vector<unsigned char> rgba;

    // The 32-bit value as the canvas wrote it: PNG red is the low byte, alpha the top byte, so
    // it compares directly with a colour property such as BarColor. 0 outside the picture.
    unsigned pixel(unsigned x, unsigned y) const;
};

// The bounding box of the pixels (as Picture::pixel gives them) that pick selects, right and
// bottom one past the last; all 0 if none is.
struct Box {
    unsigned left, top, right, bottom;
};
Box boxOf(const Picture& picture, const std::function<bool(unsigned pixel)>& pick);

// An empty picture (width and height 0) if the bytes aren't a PNG file.
Picture decodePng(const std::vector<unsigned char>& png);

// The picture that the host would get, through draw() and DM2PNG32; error pictures included.
Picture render(BarcodeVelko::BarcodeFacade2& facade);

// What a host sets before the value: no type search, the type, and a picture of width x height
// pixels as it comes out, turned by rotation.
void setUp(BarcodeVelko::BarcodeFacade2& facade, unsigned type, unsigned width, unsigned height,
           unsigned rotation = 0);

// setUp and value on a fresh facade, rendered; a failure to take the type or the value fails
// the test.
Picture draw(unsigned type, const std::wstring& value, unsigned width, unsigned height,
             unsigned rotation = 0);

// The one symbol of that format, read trying harder and in all orientations: its text in UTF-8,
// its bytes (a separator as byte 29) and its symbology identifier; all empty when nothing is
// read. Alpha is ignored. hints carries the reader's other options.
struct Reading {
    std::string text, bytes, symbology;
};
Reading readSymbol(const Picture& picture, ZXing::BarcodeFormat format,
                   ZXing::DecodeHints hints = {});

// readSymbol's text.
std::string scan(const Picture& picture, ZXing::BarcodeFormat format,
                 ZXing::DecodeHints hints = {});

// The picture turned 90 degrees clockwise.
Picture rotate90(const Picture& picture);

}  // namespace VelkoTest
