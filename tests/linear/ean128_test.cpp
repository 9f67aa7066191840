// Result::text() as UTF-8, as the scan harness reads it.
#define ZX_USE_UTF8

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/facade/code_types.h"
#include "BarcodeLib/linear/strategy_ean128.h"
#include "BarcodeLib/linear/ucc_tree_context.h"
#include "tests/support/scan_harness.h"

using BarcodeVelko::StrategyEAN128;

namespace {

constexpr unsigned kEAN128 = 2;
const std::string kGS = "\x1d";

TEST(EAN128, SymbolValuesAndShownText) {
    const struct {
        std::wstring value;
        std::vector<unsigned> values;
        const char* shown;
    } cases[] = {
        // FNC1 before a digit pair: Start A, then set C.
        {L"(11)040509(20)12", {103, 102, 99, 11, 4, 5, 9, 20, 12, 46, 106}, "(11)040509(20)12"},
        // The separator is GS in set A, value 93.
        {L"(10)ABC(21)123",
         {103, 102, 99, 10, 101, 33, 34, 35, 93, 99, 21, 12, 101, 19, 46, 106},
         "(10)ABC(21)123"},
        {L"{FMC1}20{GS1}12", {103, 102, 99, 20, 101, 93, 99, 12, 53, 106}, "2012"},
        // Character 232 (octal 350) is FNC1 anywhere; in set C it goes back to A first.
        {L"\35012\35034", {103, 102, 99, 12, 101, 102, 99, 34, 22, 106}, "\35012\35034"},
        // FNC1 takes the set of what follows it.
        {L"\350ab", {104, 102, 65, 66, 19, 106}, "\350ab"},
    };
    StrategyEAN128 strategy;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.shown);
        EXPECT_EQ(strategy.symbolValues(c.value.c_str()), c.values);
        std::wstring codeText;
        const auto root = VelkoTest::build(strategy, c.value, 3, &codeText);
        EXPECT_EQ(VelkoTest::textRowOf(VelkoTest::leavesOf(root.get())),
                  "T" + std::to_string(11 * c.values.size()) + ":" + c.shown);
    }
    std::wstring codeText = L"Lot 12";
    VelkoTest::build(strategy, L"(20)12", 3, &codeText);
    EXPECT_EQ(codeText, L"Lot 12");
}

TEST(EAN128, NothingToEncodeOrNotCode128) {
    StrategyEAN128 strategy;
    for (const wchar_t* value : {L"", L"   "}) {
        std::wstring check;
        EXPECT_FALSE(strategy.calcCheckSymbol(value, check));
        EXPECT_TRUE(VelkoTest::refuses(strategy, value, 3));
    }
    // Passes the check, stops the generation.
    EXPECT_TRUE(strategy.checkRaw(L"(10)\x416"));
    EXPECT_EQ(VelkoTest::thrownCode([&] { VelkoTest::refuses(strategy, L"(10)\x416"); }),
              BarcodeException::kUnexpectedCode);
}

TEST(EAN128, ContextCursor) {
    BarcodeVelko::UCCTreeContext context(L"(01)12");
    EXPECT_TRUE(context.trySequence(L"(01)"));
    EXPECT_FALSE(context.trySequence(L"123"));
    EXPECT_EQ(context.get(2), L"12");
    EXPECT_EQ(context.charsLeft(), 0u);
    context.unget(1);
    EXPECT_EQ(context.get(), L'2');
    EXPECT_EQ(VelkoTest::thrownCode([&] { context.get(); }), BarcodeException::kUnexpectedCode);
    EXPECT_EQ(VelkoTest::thrownCode([&] { context.setPos(6); }), BarcodeException::kUnexpectedCode);
    EXPECT_EQ(VelkoTest::thrownCode([&] { context.trySequence(L""); }),
              BarcodeException::kOutOfMemoryCode);
}

using VelkoTest::Reading;

Reading read(const VelkoTest::Picture& picture) {
    return VelkoTest::readSymbol(picture, ZXing::BarcodeFormat::Code128);
}

Reading draw(const std::wstring& value, int dataType = 0, unsigned width = 500) {
    BarcodeVelko::BarcodeFacade2 facade;
    VelkoTest::setUp(facade, kEAN128, width, 120);
    facade.setDataType(dataType);
    facade.setCodeValue(value.c_str());
    const Reading reading = read(VelkoTest::render(facade));
    EXPECT_EQ(facade.getLastError().code(), 0);
    return reading;
}

TEST(EAN128Scan, ElementStringsReadAsGS1WithGSBetweenElements) {
    const struct {
        std::wstring value;
        std::string raw;
    } cases[] = {
        {L"(01)04600822901507(11)161109(17)261231", "01046008229015071116110917261231"},
        {L"(10)ABC(21)123", "10ABC" + kGS + "21123"},
        {L"(01)04600822901507(10)LOT-7", "010460082290150710LOT-7"},
        {L"(3103)001234(401)CONS(00)123456789012345675",
         "3103001234401CONS" + kGS + "00123456789012345675"},
        {L"(8001)12345678901234(10)A", "800112345678901234" + kGS + "10A"},
        {L"(7240)PART-1(20)12", "PART-1" + kGS + "2012"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(VelkoTest::narrow(c.value));
        const Reading reading = draw(c.value);
        EXPECT_EQ(reading.symbology, "]C1");
        EXPECT_EQ(reading.text, c.raw);
    }
    // A Base64 value is a raw form already; the facade puts the start marker before it.
    EXPECT_EQ(draw(L"MTBBQkMdMjExMjM=", 1).text, "10ABC" + kGS + "21123");

    const BarcodeVelko::CodeTypeRow& row = BarcodeVelko::g_codeTypes[kEAN128];
    const Reading demo = read(
        VelkoTest::draw(kEAN128, StrategyEAN128().getDemoValue(), row.demoWidth, row.demoHeight));
    EXPECT_EQ(demo.symbology, "]C1");
    EXPECT_EQ(demo.text, "110405092012");
}

TEST(EAN128Scan, OtherTextReadsAsPlainCode128) {
    for (const wchar_t* value : {L"Hello (world)", L"(7030)123", L"(01)04600822901507(9999)1",
                                 L"(01)1234", L"(10)123456789012345678901"}) {
        const Reading reading = draw(value);
        EXPECT_EQ(reading.symbology, "]C0");
        EXPECT_EQ(reading.text, VelkoTest::narrow(value));
    }
    for (const wchar_t* value : {L"", L"   "}) {
        BarcodeVelko::BarcodeFacade2 facade;
        VelkoTest::setUp(facade, kEAN128, 500, 120);
        facade.setCodeValue(value);
        EXPECT_EQ(read(VelkoTest::render(facade)).text, "");
        EXPECT_EQ(facade.getLastError().message().toStdWString(), L"invalid barcode");
    }
}

// The longest (01) and (91) that a picture 400 pixels wide holds reads back; one character more
// doesn't fit.
TEST(EAN128Scan, LongestThatFits) {
    const std::wstring gtin = L"(01)04600822901507(91)";
    std::wstring serial;
    for (;;) {
        BarcodeVelko::BarcodeFacade2 facade;
        VelkoTest::setUp(facade, kEAN128, 400, 120);
        facade.setCodeValue((gtin + serial + L'X').c_str());
        VelkoTest::render(facade);
        if (facade.getLastError().code() != 0 || serial.size() == 90) {
            EXPECT_EQ(facade.getLastError().message().toStdWString(), L"size too small");
            break;
        }
        serial += L'X';
    }
    const Reading reading = draw(gtin + serial, 0, 400);
    EXPECT_EQ(reading.symbology, "]C1");
    EXPECT_EQ(reading.text, "010460082290150791" + VelkoTest::narrow(serial));
}

}  // namespace
