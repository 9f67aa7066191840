#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/qr/qr_code.h"
#include "BarcodeLib/qr/qr_tables.h"
#include "BarcodeLib/qr/strategy_qr.h"
#include "host/text_forms.h"
#include "tests/qr/qr_test_support.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;

namespace {

// The tree of "QR example" at M within first and second pixels; none if refused.
std::unique_ptr<AbstractBarcodeElement> generate(int first, int second) {
    StrategyQR strategy;
    AbstractBarcodeElement* root = nullptr;
    std::wstring codeText = L"stale text";
    const bool ok =
        strategy.generate(L"QR example", &root, 0, 0, true, first, second, 1, 1, codeText);
    EXPECT_EQ(ok, root != nullptr);
    EXPECT_TRUE(codeText.empty());
    return std::unique_ptr<AbstractBarcodeElement>(root);
}

const char* const kLevelNames[] = {"L", "M", "Q", "H"};

void setUpQR(BarcodeFacade2& facade, unsigned char level, unsigned width, unsigned height,
             unsigned rotation = 0) {
    VelkoTest::setUp(facade, 16, width, height, rotation);
    facade.setQRErrorCorrectionLevel(level);
}

std::string scanQR(const VelkoTest::Picture& picture) {
    return VelkoTest::scan(picture, ZXing::BarcodeFormat::QRCode);
}

}  // namespace

TEST(StrategyQR, SideIsTheSmallerOfFirstAndSecond) {
    // Version 1 with its quiet zone is 29 modules a side; 0: refused.
    const struct {
        int first, second;
        unsigned width;
    } cases[] = {
        {29, 1000, 29}, {1000, 29, 29}, {57, 58, 29}, {58, 57, 29}, {58, 58, 58},
        {28, 1000, 0},  {1000, 28, 0},  {0, 0, 0},    {-5, 100, 0},
    };
    for (const auto& c : cases) {
        const auto root = generate(c.first, c.second);
        EXPECT_EQ(root ? root->getMinWidth() : 0u, c.width) << c.first << " x " << c.second;
    }
}

TEST(StrategyQR, LevelOutsideZeroToThreeIsM) {
    for (int param : {-1, 4, 255}) {
        EXPECT_EQ(StrategyQR::ConvToErrorCorrectionLevels(param), LevelM) << param;
    }
    EXPECT_FALSE(StrategyQR::ConvBitmapMatrix2AbstractBarcodeElement(nullptr, nullptr));
}

TEST(StrategyQRFacade, HostSettingsReachTheStrategy) {
    BarcodeFacade2 facade;
    VelkoTest::setUp(facade, 16, 100, 150);
    EXPECT_STREQ(facade.getCodeValue(), L"QR example");
    facade.setCodeValue(L"QR example");
    EXPECT_EQ(facade.getCodeMinWidth(), 87u);
    EXPECT_EQ(facade.getCodeMinHeight(), 87u);
    EXPECT_STREQ(facade.getCodeText(), L"QR example");
    EXPECT_STREQ(facade.getCodeCheckSymbol(), L"");

    // 17 bytes: version 1 at L, version 2 at M.
    facade.setColumnCount(29);
    facade.setRowCount(29);
    facade.setQRErrorCorrectionLevel(0);
    facade.setCodeValue(L"seventeen bytes!!");
    EXPECT_TRUE(facade.generateCode());
    facade.setQRErrorCorrectionLevel(1);
    EXPECT_FALSE(facade.generateCode());

    // In the raw path the side comes from ColumnCount and RowCount, 0 by default.
    facade.setCodeIsRaw(true);
    EXPECT_FALSE(facade.generateCode());
    facade.setColumn2DCount(33);
    facade.setRow2DCount(40);
    EXPECT_TRUE(facade.generateCode());
    EXPECT_EQ(facade.getCodeMinWidth(), 33u);
}

// Through the facade at the first, the first with version information and the last version,
// each at a level of its own; QRRoundTrip reads every version at every level. The picture leaves
// room for the next version at one pixel a module.
TEST(StrategyQRScan, VersionsAtTheirCapacityEdge) {
    for (int v : {0, 6, kVersionCount - 1}) {
        const int level = v % 4;
        const unsigned modules = kImageSizeTable[v];
        SCOPED_TRACE("version " + std::to_string(v + 1) + " level " + kLevelNames[level]);
        BarcodeFacade2 facade;
        setUpQR(facade, static_cast<unsigned char>(level), modules + 12, modules + 12);

        const std::string full = message(capacityBytes(level, v));
        facade.setCodeValue(str2wstr(full).c_str());
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(facade.getCodeMinWidth(), modules + 8);  // with its quiet zone
        EXPECT_EQ(scanQR(picture), full);

        // One byte more takes the next version, with its quiet zone of 4 modules a side; past
        // version 40 it gives the error picture.
        facade.setCodeValue(str2wstr(full + "+").c_str());
        if (v + 1 < kVersionCount) {
            EXPECT_EQ(facade.getCodeMinWidth(), modules + 4 + 8);
        } else {
            const VelkoTest::Picture error = VelkoTest::render(facade);
            EXPECT_EQ(facade.getLastError().code(), 3);
            EXPECT_EQ(std::pair(error.width, error.height), std::pair(200u, 100u));
            EXPECT_EQ(scanQR(error), "");
        }
    }
}

// Each character goes in as its UTF-8 bytes: 14 bytes still fit version 1 at M, 15 don't.
TEST(StrategyQRScan, TextBeyondAsciiGoesInAsUtf8) {
    const struct {
        const wchar_t* text;
        const char* utf8;
        int version;
    } cases[] = {
        {L"Привет, мир", u8"Привет, мир", 2},
        {L"Привет", u8"Привет", 1},
        {L"0123456789\U0001F600", u8"0123456789\U0001F600", 1},
        {L"0123456789\U0001F600!", u8"0123456789\U0001F600!", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.utf8);
        BarcodeFacade2 facade;
        setUpQR(facade, 1, 66, 66);
        facade.setCodeValue(c.text);
        const VelkoTest::Picture picture = VelkoTest::render(facade);
        EXPECT_EQ(facade.getCodeMinWidth(), 2 * (kImageSizeTable[c.version - 1] + 8u));
        EXPECT_EQ(scanQR(picture), c.utf8);
    }
}
