#pragma once

#include <string>
#include <vector>

#include <ZXing/BarcodeFormat.h>

namespace BarcodeVelko {
class BarcodeFacade2;
}

// Test helpers: a facade's picture as the host gets it (draw, then the PNG step), decoded back
// into pixels, and read by zxing-cpp.
//
//     BarcodeVelko::BarcodeFacade2 facade;
//     facade.setCodeAuto(false);
//     facade.setCodeType(3);
//     facade.setCodeValue(L"ABC-123");
//     VelkoTest::Picture picture = VelkoTest::render(facade);
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

// An empty picture (width and height 0) if the bytes aren't a PNG file.
Picture decodePng(const std::vector<unsigned char>& png);

// The bytes that the host would get: draw() and DM2PNG32. Error pictures included.
std::vector<unsigned char> renderPng(BarcodeVelko::BarcodeFacade2& facade);

// renderPng, decoded.
Picture render(BarcodeVelko::BarcodeFacade2& facade);

// The text of the one symbol of that format, UTF-8, trying harder and in all orientations;
// empty when nothing is read. Alpha is ignored.
std::string scan(const Picture& picture, ZXing::BarcodeFormat format);

// The picture turned 90 degrees clockwise.
Picture rotate90(const Picture& picture);

}  // namespace VelkoTest
