#include <gtest/gtest.h>

#include <string>

#include "BarcodeLib/barcode_facade2.h"
#include "tests/support/scan_harness.h"

using BarcodeVelko::BarcodeFacade2;
using ZXing::BarcodeFormat;

namespace {

constexpr unsigned kEan8 = 0;
constexpr unsigned kEan13 = 1;
constexpr unsigned kCode128 = 4;

// textAlign 7 stands for the text switched off.
constexpr unsigned kHidden = 7;

std::string narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

// Draws value as the host would, with a few modules of light margin around the tree.
std::string scanSymbol(unsigned type, const std::wstring& value, bool raw, unsigned textAlign,
                       unsigned width, unsigned height, unsigned rotation, BarcodeFormat format) {
    BarcodeFacade2 facade;
    facade.setCodeAuto(false);
    facade.setCodeType(type);
    facade.setColumnCount(width);
    facade.setRowCount(height);
    facade.setCanvasRotation(rotation);
    if (textAlign == kHidden) {
        facade.setTextVisible(false);
    } else {
        facade.setTextAlign(textAlign);
    }
    facade.setCodeIsRaw(raw);
    facade.setCodeValue(value.c_str());
    EXPECT_EQ(facade.getCodeType(), type);
    const VelkoTest::Picture picture = VelkoTest::render(facade);
    EXPECT_EQ(facade.getLastError().code(), 0) << narrow(value);
    return VelkoTest::scan(picture, format);
}

TEST(EanScan, ValuesReadBackWithTheirCheckDigits) {
    struct Case {
        unsigned type;
        const wchar_t* value;
        bool raw;
        const char* read;
    } cases[] = {
        {kEan13, L"400638133393", false, "4006381333931"},
        {kEan13, L"123456789012", false, "1234567890128"},
        {kEan13, L"000000000000", false, "0000000000000"},
        {kEan13, L"9780201379624", true, "9780201379624"},
        {kEan8, L"9638507", false, "96385074"},
        {kEan8, L"0123456", false, "01234565"},
        {kEan8, L"55123457", true, "55123457"},
    };
    for (const Case& c : cases) {
        for (unsigned textAlign : {4u, 5u, 6u, kHidden}) {
            const BarcodeFormat format =
                c.type == kEan13 ? BarcodeFormat::EAN13 : BarcodeFormat::EAN8;
            EXPECT_EQ(scanSymbol(c.type, c.value, c.raw, textAlign, 260, 100, 0, format), c.read)
                << narrow(c.value) << " layout " << textAlign;
        }
    }
}

TEST(Code128Scan, TextReadsBackInAllOrientationsAndSizes) {
    const std::wstring values[] = {
        L"Code128 example", L"line\tone\r\nline two",
        L"\x1b[0m\x7f",     L"lower case abc xyz",
        L"1234567890",      L"123456789",
        L"ab12cd345ef6789", L"\x01\x1f !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~",
    };
    struct Size {
        unsigned width, height, rotation;
    } sizes[] = {{600, 80, 0}, {80, 600, 90}, {600, 80, 180}, {80, 600, 270}, {1400, 200, 0}};
    for (const std::wstring& value : values) {
        for (const Size& size : sizes) {
            EXPECT_EQ(scanSymbol(kCode128, value, false, 3, size.width, size.height, size.rotation,
                                 BarcodeFormat::Code128),
                      narrow(value))
                << narrow(value) << " at " << size.width << "x" << size.height << " rotated "
                << size.rotation;
        }
    }
}

TEST(Code128Scan, EveryDigitPairReadsBack) {
    std::wstring digits;
    for (int pair = 0; pair < 100; ++pair) {
        digits += static_cast<wchar_t>(L'0' + pair / 10);
        digits += static_cast<wchar_t>(L'0' + pair % 10);
    }
    // 100 set C values, the stop and the start: 1135 modules.
    EXPECT_EQ(scanSymbol(kCode128, digits, false, 3, 1200, 80, 0, BarcodeFormat::Code128),
              narrow(digits));
}

}  // namespace
