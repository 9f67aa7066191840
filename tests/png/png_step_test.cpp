#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "BarcodeLib/png/dm2png32.h"
#include "tests/support/scan_harness.h"

// The PNG step's edges: rows the caller vouches for, lines repeated past Adler-32's modulus,
// streams on either side of the one-block path.
namespace {

using Pixels = std::vector<unsigned char>;

// Rows of pixels from colours of a row's own, every row new unless a row of repeats says not.
Pixels picture(unsigned width, unsigned height, unsigned colours, bool opaque,
               const std::vector<bool>& repeats = {}) {
    Pixels pixels;
    unsigned seed = 12345;
    for (unsigned y = 0; y < height; ++y) {
        if (y > 0 && y < repeats.size() && repeats[y]) {
            pixels.insert(pixels.end(), pixels.end() - 4 * width, pixels.end());
            continue;
        }
        for (unsigned x = 0; x < width; ++x) {
            seed = seed * 1103515245 + 12345;
            const unsigned c = (seed >> 16) % colours;
            pixels.insert(pixels.end(),
                          {static_cast<unsigned char>(c * 85), static_cast<unsigned char>(c >> 2),
                           static_cast<unsigned char>(255 - c),
                           static_cast<unsigned char>(opaque || c % 2 == 0 ? 255 : 90)});
        }
    }
    return pixels;
}

Pixels decode(const std::vector<unsigned char>& png) {
    return VelkoTest::decodePng(png).rgba;
}

// A hinted row is taken as the row above without a look, in every colour model: hints that hold
// give the file that comparing gives, a hint that doesn't shows which rows were looked at.
TEST(PngStep, HintedRowsAreTakenOnTrustInEveryColourModel) {
    constexpr unsigned kWidth = 37;
    constexpr unsigned kHeight = 12;
    std::vector<bool> repeats(kHeight);
    repeats[3] = repeats[4] = repeats[9] = true;
    // Two colours, a palette of five, true colour opaque and not.
    for (const auto& [colours, opaque] :
         std::vector<std::pair<unsigned, bool>>{{2, true}, {5, true}, {300, true}, {300, false}}) {
        const Pixels pixels = picture(kWidth, kHeight, colours, opaque, repeats);
        const std::vector<unsigned char> plain =
            BarcodeVelko::DM2PNG32(pixels.data(), kWidth, kHeight, 4, nullptr);
        // The canvas knows only some of the repeats.
        std::vector<unsigned char> hints(kHeight);
        hints[4] = 1;
        int error = -1;
        EXPECT_EQ(BarcodeVelko::DM2PNG32(pixels.data(), kWidth, kHeight, hints, &error), plain)
            << colours;
        EXPECT_EQ(error, 0);
        // A row vouched for wrongly comes out as the row above; hints of another length are
        // not read.
        hints[7] = 1;
        Pixels expected = pixels;
        std::memcpy(&expected[4 * kWidth * 7], &expected[4 * kWidth * 6], 4 * kWidth);
        EXPECT_EQ(decode(BarcodeVelko::DM2PNG32(pixels.data(), kWidth, kHeight, hints, nullptr)),
                  expected)
            << colours;
        hints.push_back(0);
        EXPECT_EQ(BarcodeVelko::DM2PNG32(pixels.data(), kWidth, kHeight, hints, nullptr), plain);
    }
}

// Adler-32 of a line repeated more times than its modulus, an odd and an even number of times,
// and streams of new lines from the one-block path into blocks of their own codes, to a short
// block after a full one: the decoder checks every sum.
TEST(PngStep, LongRunsAndLongStreamsComeBackWhole) {
    for (const auto& [height, every] :
         std::vector<std::pair<unsigned, unsigned>>{{70001, 65537}, {70002, 65536}, {3, 2}}) {
        std::vector<bool> repeats(height, true);
        for (unsigned y = 0; y < height; y += every) {
            repeats[y] = false;
        }
        for (const unsigned colours : {2u, 300u}) {
            const Pixels pixels = picture(8, height, colours, true, repeats);
            EXPECT_EQ(decode(BarcodeVelko::DM2PNG32(pixels.data(), 8, height, 4, nullptr)), pixels)
                << height << " " << colours;
        }
    }
    // Two-colour lines of 9 bytes, each new: some 4,000 tokens at 455 lines, 65,536 and a few
    // at 7,300.
    for (const unsigned height : {200u, 455u, 456u, 1500u, 7300u, 9000u}) {
        const Pixels pixels = picture(64, height, 2, true);
        EXPECT_EQ(decode(BarcodeVelko::DM2PNG32(pixels.data(), 64, height, 4, nullptr)), pixels)
            << height;
    }
}

}  // namespace
