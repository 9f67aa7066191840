#include <gtest/gtest.h>
#include <lodepng.h>

#include <ZXing/BarcodeFormat.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/dm2png32.h"
#include "BarcodeLib/png/logo_step.h"
#include "layer/foundation/base64.h"
#include "tests/support/scan_harness.h"
#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

// The logo on a QR Code, through the facade and through the extension as the host sees it.
namespace {

constexpr unsigned kOrange = 0xFF0080FF;
constexpr unsigned kBlue = 0xFFC04010;
const std::string kValue = "https://example.com/track/42";

// Orange with a blue disc in the middle, far enough from the border that the border stays
// exactly orange when scaled.
PImage logoImage(unsigned w, unsigned h) {
    std::vector<unsigned> pixels;
    for (unsigned y = 0; y < h; ++y) {
        for (unsigned x = 0; x < w; ++x) {
            const double dx = x + 0.5 - w / 2.0, dy = y + 0.5 - h / 2.0;
            pixels.push_back(dx * dx + dy * dy < w * w / 16.0 ? kBlue : kOrange);
        }
    }
    return PImage(w, h,
                  PByteArray(reinterpret_cast<const unsigned char*>(pixels.data()), w * h * 4));
}

// The same as a PNG file (two colours: 1 bit a pixel), its header claiming w x h if given.
std::vector<unsigned char> logoPng(unsigned w = 0, unsigned h = 0) {
    const PImage logo = logoImage(64, 64);
    std::vector<unsigned char> png;
    lodepng::encode(png, logo.pixelData(), 64, 64);
    for (int i = 0; w && i < 4; ++i) {
        png[16 + i] = static_cast<unsigned char>(w >> (24 - 8 * i));
        png[20 + i] = static_cast<unsigned char>(h >> (24 - 8 * i));
    }
    lodepng_chunk_generate_crc(&png[8]);
    return png;
}

// A QR picture exactly as large as its tree, so that the tree starts at (0, 0).
VelkoTest::Picture drawQR(unsigned level, const PImage& logo, double percent, unsigned type = 16) {
    BarcodeVelko::BarcodeFacade2 facade;
    VelkoTest::setUp(facade, type, 300, 300);
    facade.setQRErrorCorrectionLevel(static_cast<unsigned char>(level));
    facade.setCodeValue(std::wstring(kValue.begin(), kValue.end()).c_str());
    facade.setRemoveExeedBackgroudFlag(true);
    facade.setLogo(logo);
    facade.setLogoSizePercent(percent);
    return VelkoTest::render(facade);
}

VelkoTest::Box boundsOf(const VelkoTest::Picture& picture, unsigned color) {
    return VelkoTest::boxOf(picture, [color](unsigned pixel) { return pixel == color; });
}

TEST(LogoStep, StampedInTheMiddleAndStillScans) {
    struct Case {
        unsigned logoWidth, logoHeight;
        double percent;
        unsigned level;  // Q and H may lose that much of the symbol
        const char* note;
    } cases[] = {
        {128, 128, 15, 2, "15 % at Q"},
        {128, 128, 15, 3, "15 % at H"},
        {128, 128, 20, 2, "20 % at Q"},
        {512, 512, 20, 3, "20 % at H"},
        {64, 128, 20, 3, "higher than wide"},
        {128, 64, 20, 3, "wider than high"},
        {128, 128, 150, 3, "150 % counts as 100"},
    };
    for (const Case& c : cases) {
        const VelkoTest::Picture picture =
            drawQR(c.level, logoImage(c.logoWidth, c.logoHeight), c.percent);
        const double percent = std::min(c.percent, 100.0);
        const double scale = c.logoWidth < c.logoHeight
                                 ? picture.height * percent / 100 / c.logoHeight
                                 : picture.width * percent / 100 / c.logoWidth;
        const unsigned w = static_cast<unsigned>(c.logoWidth * scale);
        const unsigned h = static_cast<unsigned>(c.logoHeight * scale);
        const auto [left, top, right, bottom] = boundsOf(picture, kOrange);
        EXPECT_EQ(left, (picture.width - w) / 2) << c.note;
        EXPECT_EQ(top, (picture.height - h) / 2) << c.note;
        EXPECT_EQ(right - left, w) << c.note;
        EXPECT_EQ(bottom - top, h) << c.note;
        EXPECT_EQ(picture.pixel(left + w / 2, top + h / 2), kBlue) << c.note;
        if (c.percent <= 20) {
            EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::QRCode), kValue) << c.note;
        }
    }
}

TEST(LogoStep, CentredOnTheSymbolAtEveryRotationAndShape) {
    constexpr unsigned kBlack = 0xFF000000;
    const unsigned shapes[][2] = {{500, 300}, {300, 500}, {300, 300}};
    for (unsigned rotation : {0u, 90u, 180u, 270u}) {
        for (const auto& shape : shapes) {
            for (unsigned align : {1u, 3u}) {
                BarcodeVelko::BarcodeFacade2 facade;
                VelkoTest::setUp(facade, 16, shape[0], shape[1], rotation);
                facade.setBarVerticalAlign(align);
                facade.setCodeValue(std::wstring(kValue.begin(), kValue.end()).c_str());
                facade.setLogo(logoImage(96, 64));
                facade.setLogoSizePercent(20);
                const VelkoTest::Picture picture = VelkoTest::render(facade);
                const auto logo = boundsOf(picture, kOrange);
                const auto symbol = boundsOf(picture, kBlack);
                const std::string note =
                    std::to_string(rotation) + " degrees, " + std::to_string(shape[0]) + " x " +
                    std::to_string(shape[1]) + ", align " + std::to_string(align);
                ASSERT_LT(logo.left, logo.right) << note;
                EXPECT_NEAR(logo.left + logo.right, symbol.left + symbol.right, 2.0) << note;
                EXPECT_NEAR(logo.top + logo.bottom, symbol.top + symbol.bottom, 2.0) << note;
                // Upright: wider than high, as the logo is.
                EXPECT_GT(logo.right - logo.left, logo.bottom - logo.top) << note;
            }
        }
    }
}

TEST(LogoStep, NothingDrawnWithoutPercentOrOnOtherTypes) {
    struct Case {
        unsigned type;
        double percent;
    } cases[] = {{16, 0}, {16, -5}, {3, 20}, {4, 100}};
    for (const Case& c : cases) {
        EXPECT_EQ(drawQR(3, logoImage(128, 128), c.percent, c.type).rgba,
                  drawQR(3, PImage(), 0, c.type).rgba)
            << c.type << " at " << c.percent;
    }
}

TEST(LogoStep, HeaderBoundsBeforeDecoding) {
    struct Case {
        unsigned width, height;
        size_t padding;  // bytes after the end, so that the file could hold more
        bool accepted;
        const char* note;
    } cases[] = {
        {64, 64, 0, true, "a real logo"},
        {4096, 1, 0, true, "the longest side"},
        {4097, 1, 4096, false, "a side too long"},
        {2048, 2048, 4096, true, "the most pixels"},
        {2048, 2049, 4096, false, "too many pixels"},
        {2048, 2048, 0, false, "more bytes than the file can inflate to"},
        {60000, 60000, 0, false, "huge"},
    };
    for (const Case& c : cases) {
        std::vector<unsigned char> png = logoPng(c.width, c.height);
        png.resize(png.size() + c.padding);
        EXPECT_EQ(BarcodeVelko::logoPngAcceptable(png.data(), png.size()), c.accepted) << c.note;
    }
    EXPECT_FALSE(BarcodeVelko::logoPngAcceptable(logoPng().data(), 20));
}

// Under AddressSanitizer every allocation passes a hook, and the largest one tells whether a
// file got more memory than it justifies; elsewhere that part of the check is skipped.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, size_t),
                                                         void (*)(const volatile void*))
    __attribute__((weak));
std::atomic<size_t> g_largestAllocation{0};

TEST(LogoStep, BadLogosThroughTheHostLeaveThePictureAlone) {
    static const VelkoHost::ExtensionLibrary library(VelkoHost::ExtensionLibrary::defaultPath());
    ASSERT_TRUE(library.loaded()) << library.error();
    const auto noteAllocation = [](const volatile void*, size_t size) {
        size_t seen = g_largestAllocation.load();
        while (size > seen && !g_largestAllocation.compare_exchange_weak(seen, size)) {
        }
    };
    const bool measured =
        __sanitizer_install_malloc_and_free_hooks &&
        __sanitizer_install_malloc_and_free_hooks(noteAllocation, [](const volatile void*) {});
    auto picture = [&](const std::vector<unsigned char>* logo) {
        VelkoHost::ExtensionSession session(library);
        EXPECT_TRUE(session.set("CodeAuto", false) && session.set("CodeType", 16) &&
                    session.set("Width", 200) && session.set("Height", 200) &&
                    session.set("LogoSizePercentFromBarcode", 20));
        g_largestAllocation = 0;
        if (logo) {
            EXPECT_TRUE(session.set("LogoImage", b64encode(logo->data(), logo->size())));
        }
        if (measured) {
            EXPECT_LT(g_largestAllocation.load(), 1u << 20);
        }
        EXPECT_TRUE(session.set("CodeValue", kValue));
        const std::vector<unsigned char> png = session.getBarcode();
        EXPECT_EQ(session.get("Result"), VelkoHost::Value(0));
        return png;
    };
    const std::vector<unsigned char> plain = picture(nullptr);
    const std::vector<unsigned char> good = logoPng();
    EXPECT_NE(picture(&good), plain);
    const std::vector<unsigned char> truncated(good.begin(), good.begin() + good.size() / 2);
    const std::vector<unsigned char> bad[] = {logoPng(60000, 60000), truncated,
                                              std::vector<unsigned char>(300, 0x89)};
    for (const std::vector<unsigned char>& logo : bad) {
        EXPECT_EQ(picture(&logo), plain) << logo.size() << " bytes";
    }
}

// A logo's picture through the PNG step: bands of lines of many colours (first, between runs of
// two-colour rows, last; one of them with lines that repeat, as a logo scaled up has them),
// opaque and translucent, and a palette whose colour counts grow as Fibonacci's numbers, too
// skewed for Huffman codes of at most 15 bits unless limited.
TEST(LogoStep, PicturesWithALogoComeBackExactly) {
    const auto roundTrip = [](const std::vector<unsigned char>& rgba, unsigned width,
                              const char* note) {
        const unsigned height = static_cast<unsigned>(rgba.size() / 4 / width);
        int error = -1;
        const VelkoTest::Picture back =
            VelkoTest::decodePng(BarcodeVelko::DM2PNG32(rgba.data(), width, height, 4, &error));
        EXPECT_EQ(error, 0) << note;
        EXPECT_EQ(back.rgba, rgba) << note;
    };
    constexpr unsigned kWidth = 320;
    constexpr unsigned kHeight = 200;
    for (const bool translucent : {false, true}) {
        std::vector<unsigned char> rgba;
        for (unsigned y = 0; y < kHeight; ++y) {
            const bool band = y < 30 || (y >= 40 && y < 100) || (y >= 120 && y < 140) || y >= 180;
            // Rows 40 to 99 come in threes.
            const unsigned shade = y >= 40 && y < 100 ? y - y % 3 : y;
            for (unsigned x = 0; x < kWidth; ++x) {
                if (band && x >= 100 && x < 220) {
                    rgba.insert(rgba.end(), {static_cast<unsigned char>(x * 3 + shade),
                                             static_cast<unsigned char>(x + shade * 5),
                                             static_cast<unsigned char>(x ^ shade),
                                             static_cast<unsigned char>(translucent ? x : 255)});
                } else {
                    const unsigned char v = (x / 8 + y / 16) % 2 ? 0 : 255;
                    rgba.insert(rgba.end(), {v, v, v, 255});
                }
            }
        }
        roundTrip(rgba, kWidth, translucent ? "translucent" : "opaque");
    }
    std::vector<unsigned> colours;
    for (unsigned a = 1, b = 1, colour = 0; colour < 24; ++colour, b += a, a = b - a) {
        colours.insert(colours.end(), a, colour);
    }
    // Scattered, so that few bytes repeat the one before.
    unsigned seed = 1;
    for (size_t i = colours.size() - 1; i > 0; --i) {
        seed = seed * 1103515245u + 12345u;
        std::swap(colours[i], colours[(seed >> 8) % (i + 1)]);
    }
    std::vector<unsigned char> rgba;
    for (const unsigned colour : colours) {
        rgba.insert(rgba.end(), {static_cast<unsigned char>(colour * 11), 40, 90, 255});
    }
    rgba.resize(rgba.size() / (4 * 997) * (4 * 997));
    roundTrip(rgba, 997, "Fibonacci's palette");
}

}  // namespace
