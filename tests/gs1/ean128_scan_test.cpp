// Result::text() as UTF-8, as the scan harness reads it.
#define ZX_USE_UTF8

#include <gtest/gtest.h>

#include <string>

#include <ZXing/ImageView.h>
#include <ZXing/ReadBarcode.h>

#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/code_types.h"
#include "BarcodeLib/strategy_ean128.h"
#include "tests/support/scan_harness.h"

namespace {

constexpr unsigned kEAN128 = 2;
constexpr char kGS = '\x1d';

struct Reading {
    std::string symbology;  // "]C1" for GS1, "]C0" for plain Code 128
    std::string text;
};

// The picture on a white margin of 20 pixels, for a symbol that fills its picture.
VelkoTest::Picture withMargin(const VelkoTest::Picture& picture) {
    const unsigned margin = 20;
    VelkoTest::Picture framed;
    framed.width = picture.width + 2 * margin;
    framed.height = picture.height + 2 * margin;
    framed.rgba.assign(static_cast<size_t>(framed.width) * framed.height * 4, 0xFF);
    for (unsigned y = 0; y < picture.height; ++y) {
        std::copy_n(&picture.rgba[static_cast<size_t>(y) * picture.width * 4], picture.width * 4,
                    &framed.rgba[(static_cast<size_t>(y + margin) * framed.width + margin) * 4]);
    }
    return framed;
}

Reading read(const VelkoTest::Picture& picture) {
    if (picture.width == 0) {
        return Reading();
    }
    const VelkoTest::Picture framed = withMargin(picture);
    const ZXing::ImageView view(framed.rgba.data(), static_cast<int>(framed.width),
                                static_cast<int>(framed.height), ZXing::ImageFormat::RGBX);
    const ZXing::Result result = ZXing::ReadBarcode(
        view, ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::Code128).setTryHarder(true));
    if (!result.isValid()) {
        return Reading();
    }
    return {result.symbologyIdentifier(), result.text()};
}

TEST(EAN128Scan, ElementStringsReadAsGS1) {
    const struct {
        std::wstring value;
        std::string raw;  // the raw form without markers, GS where a separator stands
    } cases[] = {
        {L"(01)04600822901507(11)161109(17)261231",
         "010460082290150711161109"
         "17261231"},
        {L"(10)ABC(21)123", std::string("10ABC") + kGS + "21123"},
        {L"(01)04600822901507(10)LOT-7",
         "0104600822901507"
         "10LOT-7"},
        {L"(11)040509(20)12", "110405092012"},
        {L"(3103)001234(401)CONS(00)123456789012345675",
         std::string("3103001234401CONS") + kGS + "00123456789012345675"},
        {L"(8001)12345678901234(10)A", std::string("800112345678901234") + kGS + "10A"},
        {L"(01)04600822901507(7240)PART-1", "0104600822901507PART-1"},
        {L"(7240)ABC", "ABC"},
        {L"{FMC1}0104600822901507", "0104600822901507"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(VelkoTest::narrow(c.value));
        const Reading reading = read(VelkoTest::draw(kEAN128, c.value, 500, 120));
        EXPECT_EQ(reading.symbology, "]C1");
        EXPECT_EQ(reading.text, c.raw);
    }
}

TEST(EAN128Scan, DemoValueAtItsDemoSize) {
    const BarcodeVelko::CodeTypeRow& row = BarcodeVelko::g_codeTypes[kEAN128];
    const Reading reading = read(VelkoTest::draw(
        kEAN128, BarcodeVelko::StrategyEAN128().getDemoValue(), row.demoWidth, row.demoHeight));
    EXPECT_EQ(reading.symbology, "]C1");
    EXPECT_EQ(reading.text, "110405092012");
}

TEST(EAN128Scan, OtherTextReadsAsPlainCode128) {
    for (const wchar_t* value :
         {L"ABC", L"Hello (world)", L"(7030)123", L"(01)04600822901507(9999)1", L"(01)1234",
          L"(10)123456789012345678901", L"(20)12X(10)A"}) {
        SCOPED_TRACE(VelkoTest::narrow(value));
        const Reading reading = read(VelkoTest::draw(kEAN128, value, 500, 120));
        EXPECT_EQ(reading.symbology, "]C0");
        EXPECT_EQ(reading.text, VelkoTest::narrow(value));
    }
}

TEST(EAN128Scan, NothingToEncodeGivesTheErrorPicture) {
    for (const wchar_t* value : {L"", L"   "}) {
        BarcodeVelko::BarcodeFacade2 facade;
        VelkoTest::setUp(facade, kEAN128, 500, 120);
        try {
            facade.setCodeValue(value);
        } catch (...) {
            // A refusal may already come with the write; the picture tells in any case.
        }
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(facade.getLastError().code(), 3);
        EXPECT_EQ(facade.getLastError().message().toStdWString(), L"invalid barcode");
        EXPECT_EQ(read(picture).text, "");
    }
}

// The longest element string of (01) and (91) that a picture 400 pixels wide holds: it reads
// back, and one character more no longer fits.
TEST(EAN128Scan, LongestThatFits) {
    const unsigned width = 400;
    std::wstring longest;
    for (unsigned length = 1; length <= 90; ++length) {
        const std::wstring value = L"(01)04600822901507(91)" + std::wstring(length, L'X');
        BarcodeVelko::BarcodeFacade2 facade;
        VelkoTest::setUp(facade, kEAN128, width, 100);
        facade.setCodeValue(value.c_str());
        VelkoTest::render(facade);
        if (facade.getLastError().code() != 0) {
            break;
        }
        longest = value;
    }
    ASSERT_GT(longest.size(), 22u);
    ASSERT_LT(longest.size(), 22u + 90u);
    SCOPED_TRACE(VelkoTest::narrow(longest));
    const VelkoTest::Picture picture = VelkoTest::draw(kEAN128, longest, width, 100);
    EXPECT_EQ(picture.width, width);
    const Reading reading = read(picture);
    EXPECT_EQ(reading.symbology, "]C1");
    EXPECT_EQ(reading.text,
              "0104600822901507"
              "91" +
                  VelkoTest::narrow(longest.substr(22)));
}

}  // namespace
