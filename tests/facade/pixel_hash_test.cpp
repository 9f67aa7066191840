// The pictures of every older code type's demo value, and of a few of them turned, transparent
// and coloured, must decode to the very pixels they had before the drawing and the PNG step were
// made faster.
// pixel_hashes.inc holds FNV-1a hashes of the decoded RGBA; run this test with
// VELKO_PRINT_PIXEL_HASHES=1 to print the table anew after a deliberate change.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "tests/support/scan_harness.h"

namespace {

enum Look : unsigned { Plain, Transparent, Coloured };

struct PixelCase {
    unsigned type;
    unsigned width;
    unsigned height;
    unsigned rotation;
    unsigned look;
    uint64_t hash;
};

const PixelCase kPixelCases[] = {
#include "tests/facade/pixel_hashes.inc"
};

uint64_t fnv1a(const VelkoTest::Picture& picture) {
    uint64_t hash = 14695981039346656037ull;
    auto mix = [&hash](unsigned char byte) {
        hash ^= byte;
        hash *= 1099511628211ull;
    };
    for (unsigned value : {picture.width, picture.height}) {
        for (int shift = 0; shift < 32; shift += 8) {
            mix(static_cast<unsigned char>(value >> shift));
        }
    }
    for (unsigned char byte : picture.rgba) {
        mix(byte);
    }
    return hash;
}

uint64_t render(const PixelCase& c) {
    BarcodeVelko::BarcodeFacade2 facade;
    VelkoTest::setUp(facade, c.type, c.width, c.height, c.rotation);
    if (c.look == Transparent) {
        facade.setBgTransparent(true);
    } else if (c.look == Coloured) {
        facade.setBarColor(0xFF8A2B1Cu);
        facade.setBgColor(0xFFD8F0FFu);
        facade.setTextColor(0xFF207010u);
    }
    const VelkoTest::Picture picture = VelkoTest::render(facade);
    EXPECT_EQ(facade.getLastError().code(), 0) << "type " << c.type;
    return fnv1a(picture);
}

TEST(PixelHashTest, PicturesKeepTheirPixels) {
    if (std::getenv("VELKO_PRINT_PIXEL_HASHES")) {
        for (const PixelCase& c : kPixelCases) {
            std::printf("    {%u, %u, %u, %u, %u, 0x%016llxull},\n", c.type, c.width, c.height,
                        c.rotation, c.look, static_cast<unsigned long long>(render(c)));
        }
        return;
    }
    for (const PixelCase& c : kPixelCases) {
        EXPECT_EQ(render(c), c.hash) << "type " << c.type << ", " << c.width << " x " << c.height
                                     << ", rotation " << c.rotation << ", look " << c.look;
    }
}

}  // namespace
