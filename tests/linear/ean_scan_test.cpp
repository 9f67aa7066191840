#include <gtest/gtest.h>

#include <string>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "tests/support/scan_harness.h"

using ZXing::BarcodeFormat;

namespace {

constexpr unsigned kEan8 = 0;
constexpr unsigned kEan13 = 1;
constexpr unsigned kCode128 = 4;
constexpr unsigned kHidden = 7;  // stands for the text switched off

TEST(EanScan, ValuesReadBackWithTheirCheckDigitsInEveryLayout) {
    const struct {
        unsigned type;
        const wchar_t* value;
        bool raw;
        unsigned textAlign;
        const char* read;
    } cases[] = {
        {kEan13, L"400638133393", false, 4, "4006381333931"},
        {kEan13, L"123456789012", false, 5, "1234567890128"},
        {kEan13, L"000000000000", false, 6, "0000000000000"},
        {kEan13, L"9780201379624", true, kHidden, "9780201379624"},
        {kEan8, L"9638507", false, 4, "96385074"},
        {kEan8, L"0123456", false, 5, "01234565"},
        {kEan8, L"55123457", true, 6, "55123457"},
        {kEan8, L"9638507", false, kHidden, "96385074"},
    };
    for (const auto& c : cases) {
        BarcodeVelko::BarcodeFacade2 facade;
        VelkoTest::setUp(facade, c.type, 260, 100);
        if (c.textAlign == kHidden) {
            facade.setTextVisible(false);
        } else {
            facade.setTextAlign(c.textAlign);
        }
        facade.setCodeIsRaw(c.raw);
        facade.setCodeValue(c.value);
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(facade.getLastError().code(), 0) << c.read;
        EXPECT_EQ(
            VelkoTest::scan(picture, c.type == kEan13 ? BarcodeFormat::EAN13 : BarcodeFormat::EAN8),
            c.read)
            << "layout " << c.textAlign;
    }
}

std::wstring everyDigitPair() {
    std::wstring digits;
    for (int pair = 0; pair < 100; ++pair) {
        digits += {static_cast<wchar_t>(L'0' + pair / 10), static_cast<wchar_t>(L'0' + pair % 10)};
    }
    return digits;
}

TEST(Code128Scan, TextReadsBackInAllOrientationsAndSizes) {
    const struct {
        std::wstring value;
        unsigned width, height, rotation;
    } cases[] = {
        {L"Code128 example", 600, 80, 0},
        {L"line\tone\r\nline two", 80, 600, 90},
        {L"\x1b[0m\x7f", 600, 80, 180},
        {L"lower case abc xyz", 80, 600, 270},
        {L"1234567890", 1400, 200, 0},  // an even run of digits
        {L"123456789", 80, 600, 90},    // an odd one
        {L"ab12cd345ef6789", 600, 80, 180},
        {L"\x01\x1f !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~", 80, 600, 270},
        // 100 set C values, the start and the stop: 1135 modules.
        {everyDigitPair(), 1200, 80, 0},
    };
    for (const auto& c : cases) {
        const VelkoTest::Picture picture =
            VelkoTest::draw(kCode128, c.value, c.width, c.height, c.rotation);
        EXPECT_EQ(VelkoTest::scan(picture, BarcodeFormat::Code128), VelkoTest::narrow(c.value))
            << "rotated " << c.rotation;
    }
}

}  // namespace
