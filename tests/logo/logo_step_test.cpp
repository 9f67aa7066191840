#include <gtest/gtest.h>
#include <lodepng.h>

#include <ZXing/BarcodeFormat.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/logo_step.h"
#include "layer/foundation/base64.h"
#include "tests/support/scan_harness.h"
#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

// The logo on a QR Code, through the facade and through the extension as the host sees it.
namespace {

using BarcodeVelko::BarcodeFacade2;

constexpr unsigned kOrange = 0xFF0080FF;
constexpr unsigned kBlue = 0xFFC04010;
const std::wstring kValue = L"https://example.com/track/42";

// Orange with a blue disc in the middle, far enough from the border that the border stays
// exactly orange after scaling; RGBA bytes.
std::vector<unsigned char> logoBytes(unsigned w, unsigned h) {
    std::vector<unsigned char> rgba;
    for (unsigned y = 0; y < h; ++y) {
        for (unsigned x = 0; x < w; ++x) {
            const double dx = x + 0.5 - w / 2.0, dy = y + 0.5 - h / 2.0;
            const unsigned colour = dx * dx + dy * dy < w * w / 16.0 ? kBlue : kOrange;
            for (int shift = 0; shift < 32; shift += 8) {
                rgba.push_back(static_cast<unsigned char>(colour >> shift));
            }
        }
    }
    return rgba;
}

PImage logoImage(unsigned w, unsigned h) {
    const std::vector<unsigned char> rgba = logoBytes(w, h);
    return PImage(w, h, PByteArray(rgba.data(), rgba.size()));
}

std::vector<unsigned char> logoPng(unsigned w, unsigned h) {
    std::vector<unsigned char> png;
    lodepng::encode(png, logoBytes(w, h), w, h);
    return png;
}

std::string base64(const std::vector<unsigned char>& bytes) {
    return b64encode(bytes.data(), static_cast<unsigned>(bytes.size()));
}

// A QR picture exactly as large as its tree, so that the tree starts at (0, 0).
VelkoTest::Picture drawQR(unsigned level, const PImage& logo, double percent, unsigned type = 16) {
    BarcodeFacade2 facade;
    VelkoTest::setUp(facade, type, 300, 300);
    facade.setQRErrorCorrectionLevel(static_cast<unsigned char>(level));
    facade.setCodeValue(kValue.c_str());
    facade.setRemoveExeedBackgroudFlag(true);
    facade.setLogo(logo);
    facade.setLogoSizePercent(percent);
    return VelkoTest::render(facade);
}

TEST(LogoStep, StampedInTheMiddleAndStillScans) {
    struct Case {
        unsigned logoWidth, logoHeight;
        double percent;
        unsigned level;
    } cases[] = {
        {128, 128, 15, 2}, {128, 128, 15, 3}, {128, 128, 20, 2}, {128, 128, 20, 3},
        {512, 512, 20, 3}, {64, 128, 20, 3},  {128, 64, 20, 3},  {128, 128, 150, 3},
    };
    for (const Case& c : cases) {
        const VelkoTest::Picture picture =
            drawQR(c.level, logoImage(c.logoWidth, c.logoHeight), c.percent);
        const std::string name = std::to_string(c.logoWidth) + "x" + std::to_string(c.logoHeight) +
                                 " at " + std::to_string(c.percent) + "%, level " +
                                 std::to_string(c.level);
        // The longer side of the logo against the same side of the tree; 150 counts as 100.
        const double percent = std::min(c.percent, 100.0);
        const double scale = c.logoWidth < c.logoHeight
                                 ? picture.height * percent / 100 / c.logoHeight
                                 : picture.width * percent / 100 / c.logoWidth;
        const unsigned w = static_cast<unsigned>(c.logoWidth * scale);
        const unsigned h = static_cast<unsigned>(c.logoHeight * scale);
        unsigned left = picture.width, top = picture.height, right = 0, bottom = 0;
        for (unsigned y = 0; y < picture.height; ++y) {
            for (unsigned x = 0; x < picture.width; ++x) {
                if (picture.pixel(x, y) == kOrange) {
                    left = std::min(left, x), right = std::max(right, x + 1);
                    top = std::min(top, y), bottom = std::max(bottom, y + 1);
                }
            }
        }
        EXPECT_EQ(left, (picture.width - w) / 2) << name;
        EXPECT_EQ(top, (picture.height - h) / 2) << name;
        EXPECT_EQ(right - left, w) << name;
        EXPECT_EQ(bottom - top, h) << name;
        EXPECT_EQ(picture.pixel(left + w / 2, top + h / 2), kBlue) << name;
        if (c.percent <= 20) {
            EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::QRCode),
                      std::string(kValue.begin(), kValue.end()))
                << name;
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
    // A small real file of 1 bit a pixel, its header rewritten.
    const std::vector<unsigned char> real = logoPng(64, 64);
    for (const Case& c : cases) {
        std::vector<unsigned char> png = real;
        png.resize(png.size() + c.padding);
        for (int i = 0; i < 4; ++i) {
            png[16 + i] = static_cast<unsigned char>(c.width >> (24 - 8 * i));
            png[20 + i] = static_cast<unsigned char>(c.height >> (24 - 8 * i));
        }
        lodepng_chunk_generate_crc(&png[8]);
        EXPECT_EQ(BarcodeVelko::logoPngAcceptable(png.data(), png.size()), c.accepted) << c.note;
    }
    EXPECT_FALSE(BarcodeVelko::logoPngAcceptable(real.data(), 20));
    const std::string text = "not a picture at all";
    EXPECT_FALSE(BarcodeVelko::logoPngAcceptable(
        reinterpret_cast<const unsigned char*>(text.data()), text.size()));
}

// Under AddressSanitizer every allocation passes a hook, and the largest one tells whether a
// file got more memory than it justifies; elsewhere that part of the check is skipped.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, size_t),
                                                         void (*)(const volatile void*))
    __attribute__((weak));
std::atomic<size_t> g_largestAllocation{0};

void noteAllocation(const volatile void*, size_t size) {
    size_t seen = g_largestAllocation.load();
    while (size > seen && !g_largestAllocation.compare_exchange_weak(seen, size)) {
    }
}

void noteFree(const volatile void*) {}

TEST(LogoStep, BadLogosThroughTheHostLeaveThePictureAlone) {
    static const VelkoHost::ExtensionLibrary library(VelkoHost::ExtensionLibrary::defaultPath());
    ASSERT_TRUE(library.loaded()) << library.error();
    const bool measured = __sanitizer_install_malloc_and_free_hooks &&
                          __sanitizer_install_malloc_and_free_hooks(noteAllocation, noteFree);
    std::vector<unsigned char> huge = logoPng(64, 64);
    huge[17] = huge[21] = 0;  // 60000 = 0x0000EA60
    huge[18] = huge[22] = 0xEA;
    huge[19] = huge[23] = 0x60;
    lodepng_chunk_generate_crc(&huge[8]);
    std::vector<unsigned char> truncated = logoPng(64, 64);
    truncated.resize(truncated.size() / 2);
    const std::vector<unsigned char> junk(300, 0x89);

    auto picture = [&](const std::string* logo) {
        VelkoHost::ExtensionSession session(library);
        for (const auto& [name, value] :
             {std::pair<std::string, VelkoHost::Value>{"CodeAuto", false},
              {"CodeType", 16},
              {"Width", 200},
              {"Height", 200},
              {"LogoSizePercentFromBarcode", 20}}) {
            EXPECT_TRUE(session.set(name, value)) << name;
        }
        if (logo) {
            g_largestAllocation = 0;
            EXPECT_TRUE(session.set("LogoImage", *logo));
            if (measured) {
                EXPECT_LT(g_largestAllocation.load(), 1u << 20);
            }
        }
        EXPECT_TRUE(session.set("CodeValue", std::string(kValue.begin(), kValue.end())));
        std::vector<unsigned char> png = session.getBarcode();
        EXPECT_EQ(session.get("Result"), VelkoHost::Value(0));
        return png;
    };
    const std::vector<unsigned char> plain = picture(nullptr);
    const std::string good = base64(logoPng(64, 64));
    EXPECT_NE(picture(&good), plain);
    const std::vector<unsigned char>* bads[] = {&huge, &truncated, &junk};
    for (const std::vector<unsigned char>* bad : bads) {
        const std::string logo = base64(*bad);
        EXPECT_EQ(picture(&logo), plain) << bad->size() << " bytes";
    }
}

}  // namespace
