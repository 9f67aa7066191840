#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "BarcodeLib/QR/qr_tables.h"
#include "BarcodeLib/barcode_facade2.h"
#include "tests/support/scan_harness.h"

using BarcodeVelko::BarcodeFacade2;

namespace {

const char* const kLevelNames[] = {"L", "M", "Q", "H"};

void setUpQR(BarcodeFacade2& facade, unsigned char level, unsigned width, unsigned height) {
    facade.setCodeAuto(false);
    facade.setCodeType(16);
    facade.setQRErrorCorrectionLevel(level);
    facade.setColumnCount(width);
    facade.setRowCount(height);
}

std::string scanQR(const VelkoTest::Picture& picture) {
    return VelkoTest::scan(picture, ZXing::BarcodeFormat::QRCode);
}

// Side of the dark part of an upright symbol: its modules, quiet zone aside, times the scale.
int darkSide(const VelkoTest::Picture& picture) {
    int left = static_cast<int>(picture.width), right = -1;
    for (unsigned y = 0; y < picture.height; ++y) {
        for (unsigned x = 0; x < picture.width; ++x) {
            if ((picture.pixel(x, y) & 0xFF) < 128) {
                left = std::min(left, static_cast<int>(x));
                right = std::max(right, static_cast<int>(x));
            }
        }
    }
    return right - left + 1;
}

std::string message(size_t length) {
    static const char kAlphabet[] = "Ship to: 221B Baker Street, London NW1 6XE; ";
    std::string text;
    for (size_t i = 0; i < length; ++i) {
        text += kAlphabet[i % (sizeof(kAlphabet) - 1)];
    }
    return text;
}

std::wstring wide(const std::string& ascii) {
    return std::wstring(ascii.begin(), ascii.end());
}

size_t capacityBytes(int level, int versionIndex) {
    const int header = versionIndex < 9 ? 12 : 20;
    return static_cast<size_t>((kDataBitsTable[level][versionIndex] - header) / 8);
}

}  // namespace

// Each version at a level of its own, so that the run covers all four levels. The picture
// leaves room for the next version at one pixel a module.
TEST(StrategyQRScan, EveryVersionAtItsCapacityEdge) {
    for (int v = 0; v < kVersionCount; ++v) {
        const int level = v % 4;
        const int modules = kImageSizeTable[v];
        SCOPED_TRACE("version " + std::to_string(v + 1) + " level " + kLevelNames[level]);
        BarcodeFacade2 facade;
        setUpQR(facade, static_cast<unsigned char>(level), modules + 12, modules + 12);

        const std::string full = message(capacityBytes(level, v));
        facade.setCodeValue(wide(full).c_str());
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(darkSide(picture), modules);
        EXPECT_EQ(scanQR(picture), full);

        facade.setCodeValue(wide(full + "+").c_str());
        const VelkoTest::Picture next = VelkoTest::render(facade);
        if (v + 1 < kVersionCount) {
            EXPECT_EQ(darkSide(next), modules + 4);
            EXPECT_EQ(scanQR(next), full + "+");
        } else {
            EXPECT_EQ(facade.getLastError().code(), 3);
        }
    }
}

TEST(StrategyQRScan, TooLongForItsLevelIsAnInvalidBarcode) {
    const size_t kLimits[] = {2953, 2331, 1663, 1273};
    for (unsigned char level = 0; level < 4; ++level) {
        SCOPED_TRACE(kLevelNames[level]);
        BarcodeFacade2 facade;
        setUpQR(facade, level, 200, 200);
        facade.setCodeValue(wide(message(kLimits[level])).c_str());
        EXPECT_TRUE(facade.generateCode());

        facade.setCodeValue(wide(message(kLimits[level] + 1)).c_str());
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(facade.getLastError().code(), 3);
        EXPECT_EQ(picture.width, 200u);
        EXPECT_EQ(picture.height, 100u);
        EXPECT_EQ(scanQR(picture), "");
    }
}

// Each character goes in as its UTF-8 bytes: 14 bytes still fit version 1 at M, 15 don't.
TEST(StrategyQRScan, TextBeyondAsciiGoesInAsUtf8) {
    struct Case {
        const wchar_t* text;
        const char* utf8;
        int version;
    };
    const Case cases[] = {
        {L"Привет, мир",
         "\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82, "
         "\xD0\xBC\xD0\xB8\xD1\x80",
         2},
        {L"Привет", "\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82", 1},
        {L"0123456789\U0001F600", "0123456789\xF0\x9F\x98\x80", 1},
        {L"0123456789\U0001F600!", "0123456789\xF0\x9F\x98\x80!", 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.utf8);
        BarcodeFacade2 facade;
        setUpQR(facade, 1, 66, 66);
        facade.setCodeValue(c.text);
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(darkSide(picture), 2 * kImageSizeTable[c.version - 1]);
        EXPECT_EQ(scanQR(picture), c.utf8);
    }
}

TEST(StrategyQRScan, EveryRotationScans) {
    const unsigned kRotations[] = {0, 90, 180, 270};
    for (unsigned char level = 0; level < 4; ++level) {
        SCOPED_TRACE(kRotations[level]);
        BarcodeFacade2 facade;
        setUpQR(facade, level, 150, 100);
        facade.setCanvasRotation(kRotations[level]);
        facade.setCodeValue(L"Label 42, Warehouse 7");
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(picture.width, 150u);
        EXPECT_EQ(picture.height, 100u);
        EXPECT_EQ(scanQR(picture), "Label 42, Warehouse 7");
    }
}
