// Result::text() as UTF-8.
#define ZX_USE_UTF8

#include <gtest/gtest.h>

#include <ZXing/DecodeHints.h>
#include <ZXing/ImageView.h>
#include <ZXing/ReadBarcode.h>

#include <string>
#include <vector>

#include "BarcodeLib/barcode_facade2.h"
#include "tests/support/scan_harness.h"

using BarcodeVelko::BarcodeFacade2;
using ZXing::BarcodeFormat;

namespace {

constexpr unsigned kInterleaved2of5 = 8;
constexpr unsigned kCode39Ext = 9;
constexpr unsigned kCode93 = 10;
constexpr unsigned kITF14 = 11;
constexpr unsigned kCodaBar = 13;
constexpr unsigned kAddOn2 = 14;
constexpr unsigned kAddOn5 = 15;

std::string narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

// Picture size and orientation; the width runs along the bars' row before the turn.
struct Size {
    unsigned width, height, rotation;
};

// What the shared scan can't ask for: full ASCII for Code 39, the start and stop letters of
// Codabar and the add-on beside EAN-13.
std::string read(const VelkoTest::Picture& picture, BarcodeFormat format) {
    ZXing::DecodeHints hints;
    hints.setFormats(format).setTryHarder(true).setTryRotate(true);
    hints.setTryCode39ExtendedMode(true).setReturnCodabarStartEnd(true);
    hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Require);
    const ZXing::Result result = ZXing::ReadBarcode(
        ZXing::ImageView(picture.rgba.data(), static_cast<int>(picture.width),
                         static_cast<int>(picture.height), ZXing::ImageFormat::RGBX),
        hints);
    return result.isValid() ? result.text() : std::string();
}

VelkoTest::Picture draw(unsigned type, const std::wstring& value, const Size& size) {
    BarcodeFacade2 facade;
    facade.setCodeAuto(false);
    facade.setCodeType(type);
    const bool turned = size.rotation == 90 || size.rotation == 270;
    facade.setColumnCount(turned ? size.height : size.width);
    facade.setRowCount(turned ? size.width : size.height);
    facade.setCanvasRotation(size.rotation);
    facade.setCodeValue(value.c_str());
    EXPECT_EQ(facade.getCodeType(), type);
    VelkoTest::Picture picture = VelkoTest::render(facade);
    EXPECT_EQ(facade.getLastError().code(), 0) << narrow(value);
    return picture;
}

// The whole of ASCII but NUL, in pieces that fit a picture.
std::vector<std::wstring> asciiPieces() {
    std::vector<std::wstring> pieces;
    for (wchar_t first = 1; first < 128; first += 32) {
        std::wstring piece;
        for (wchar_t c = first; c < first + 32 && c < 128; ++c) {
            piece += c;
        }
        pieces.push_back(piece);
    }
    return pieces;
}

TEST(LinearScan, FullAsciiReadsBack) {
    for (unsigned type : {kCode39Ext, kCode93}) {
        const BarcodeFormat format =
            type == kCode93 ? BarcodeFormat::Code93 : BarcodeFormat::Code39;
        for (const std::wstring& piece : asciiPieces()) {
            for (const Size& size :
                 {Size{2400, 120, 0}, Size{2400, 160, 90}, Size{1500, 90, 180}}) {
                EXPECT_EQ(read(draw(type, piece, size), format), narrow(piece))
                    << type << " at " << size.rotation << ": " << narrow(piece);
            }
        }
    }
}

TEST(LinearScan, ValuesReadBackWithCheckDigitsAndLetters) {
    struct Case {
        unsigned type;
        const wchar_t* value;
        BarcodeFormat format;
        const char* read;
    } cases[] = {
        {kInterleaved2of5, L"12345", BarcodeFormat::ITF, "123457"},
        {kInterleaved2of5, L"0123456789012", BarcodeFormat::ITF, "01234567890128"},
        {kITF14, L"1123456789012", BarcodeFormat::ITF, "11234567890125"},
        {kITF14, L"0001234560001", BarcodeFormat::ITF, "00012345600012"},
        {kCodaBar, L"A12345B", BarcodeFormat::Codabar, "A12345B"},
        {kCodaBar, L"C-$:/.+0123456789D", BarcodeFormat::Codabar, "C-$:/.+0123456789D"},
        {kCodaBar, L"D01A", BarcodeFormat::Codabar, "D01A"},
        {kAddOn2, L"400638133393134", BarcodeFormat::EAN13, "4006381333931 34"},
        {kAddOn5, L"978020137962452495", BarcodeFormat::EAN13, "9780201379624 52495"},
    };
    const Size sizes[] = {{300, 100, 0}, {450, 140, 90}, {300, 100, 180}, {700, 200, 270}};
    for (const Case& c : cases) {
        for (const Size& size : sizes) {
            EXPECT_EQ(read(draw(c.type, c.value, size), c.format), c.read)
                << narrow(c.value) << " at " << size.rotation << ", " << size.width;
        }
    }
}

// 0n covers the four parities of the 2-digit add-on, 0000n the ten rows of the 5-digit one, as
// 3n mod 10 runs through them all.
TEST(LinearScan, EveryAddOnParityReadsBack) {
    for (unsigned type : {kAddOn2, kAddOn5}) {
        for (wchar_t last = L'0'; last <= (type == kAddOn2 ? L'3' : L'9'); ++last) {
            const std::wstring addOn = (type == kAddOn2 ? L"0" : L"0000") + std::wstring(1, last);
            for (const Size& size : {Size{300, 100, 0}, Size{450, 140, 90}}) {
                EXPECT_EQ(read(draw(type, L"4006381333931" + addOn, size), BarcodeFormat::EAN13),
                          "4006381333931 " + narrow(addOn))
                    << narrow(addOn) << " at " << size.rotation;
            }
        }
    }
}

}  // namespace
