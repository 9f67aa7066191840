#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "tests/support/tree_checks.h"

using namespace BarcodeVelko;
using VelkoTest::thrownCode;

const unsigned kUnexpected = BarcodeException::kUnexpectedCode;
const unsigned kWrongValue = BarcodeException::kInvalidArgumentCode;

using F = BarcodeFacade2;
using Get = std::function<std::wstring(const F&)>;

template <class T>
Get number(T (F::*get)() const) {
    return [get](const F& f) { return std::to_wstring((f.*get)()); };
}

TEST(Facade, TypeSearchRunsOncePerCodeAuto) {
    BarcodeFacade2 facade;
    facade.setCodeValue(L"1234567");
    EXPECT_EQ(facade.getCodeType(), 0u);
    EXPECT_FALSE(facade.getCodeAuto());
    EXPECT_EQ(facade.getCodeMinWidth(), 67u);

    // Letters don't encode in EAN-8; without a search the type and the tree stay.
    facade.setCodeValue(L"hello");
    EXPECT_EQ(facade.getCodeType(), 0u);
    EXPECT_EQ(facade.getCodeMinWidth(), 67u);

    // EAN-128 comes before every other type that takes text, and takes any ASCII text.
    facade.setCodeAuto(true);
    facade.setCodeValue(L"hello");
    EXPECT_EQ(facade.getCodeType(), 2u);
    EXPECT_FALSE(facade.getCodeAuto());

    EXPECT_EQ(facade.getCodeTypeByValue(L"", 0), 25);
    // Beyond ASCII it throws while it builds the symbol, which ends the search.
    EXPECT_THROW(facade.getCodeTypeByValue(L"\u00E9\u00E9", 0), BarcodeException::Unexpected);
}

TEST(Facade, CodeTypeShowsTheDemoValueAndResetsTheTextAlign) {
    BarcodeFacade2 facade;
    EXPECT_EQ(facade.getTextAlign(), BarcodeFacade2::kAutoTextAlign);
    facade.setCodeType(3);
    EXPECT_STREQ(facade.getCodeValue(), L"CODE39");
    EXPECT_STREQ(facade.getCodeText(), L"CODE39");
    EXPECT_EQ(facade.getTextAlign(), 3u);
    EXPECT_EQ(facade.getCodeMinWidth(), 127u);
    EXPECT_TRUE(facade.getCodeAuto());  // an empty value decides nothing

    facade.setCodeAuto(false);
    facade.setTextAlign(0);
    facade.setCodeValue(L"AB-1");
    EXPECT_EQ(facade.getTextAlign(), 0u);
    EXPECT_STREQ(facade.getCodeText(), L"AB-1");

    facade.setCodeType(3);
    EXPECT_STREQ(facade.getCodeValue(), L"CODE39");
    EXPECT_EQ(facade.getTextAlign(), 3u);
    EXPECT_EQ(thrownCode([&] { facade.getStrategy(25); }), kUnexpected);
    EXPECT_EQ(thrownCode([&] { facade.getStrategy(-1); }), kUnexpected);
}

TEST(Facade, RawFlagWithoutACheckSymbol) {
    BarcodeFacade2 facade;
    facade.setCodeType(3);
    facade.setCodeAuto(false);
    facade.setCodeValue(L"AB");
    facade.setCodeIsRaw(true);
    EXPECT_STREQ(facade.getCodeValue(), L"AB");
    facade.setCodeIsRaw(false);
    EXPECT_STREQ(facade.getCodeValue(), L"AB");

    // One character can't be raw: the plain trial takes it and the flag goes back.
    facade.setCodeIsRaw(true);
    facade.setCodeValue(L"A");
    EXPECT_FALSE(facade.getCodeIsRaw());
    EXPECT_EQ(facade.getCodeMinWidth(), 16u + 31);

    // Values that don't encode keep the old tree and throw nothing.
    facade.setCodeValue(L"a");
    facade.setCodeValue(L"");
    EXPECT_FALSE(facade.getCodeIsRaw());
    EXPECT_EQ(facade.getCodeMinWidth(), 16u + 31);
}

TEST(Facade, RawValueWithACheckDigit) {
    BarcodeFacade2 facade;
    // Found by the raw trial; the plain one fails, so the flag flips.
    facade.setCodeValue(L"4006381333931");
    EXPECT_EQ(facade.getCodeType(), 1u);
    EXPECT_FALSE(facade.getCodeAuto());
    EXPECT_TRUE(facade.getCodeIsRaw());
    EXPECT_STREQ(facade.getCodeCheckSymbol(), L"1");

    facade.setCodeIsRaw(false);
    EXPECT_STREQ(facade.getCodeValue(), L"400638133393");
    facade.setCodeIsRaw(true);
    EXPECT_STREQ(facade.getCodeValue(), L"4006381333931");

    // A wrong check digit fails both ways and leaves the last success in place.
    const unsigned width = facade.getCodeMinWidth();
    facade.setCodeValue(L"4006381333932");
    EXPECT_TRUE(facade.getCodeIsRaw());
    EXPECT_STREQ(facade.getCodeCheckSymbol(), L"1");
    EXPECT_EQ(facade.getCodeMinWidth(), width);
}

TEST(Facade, PrepareCodeValue) {
    const wchar_t* gs1 = L"KDAxKTEyMzQ1Njc4OTAxMjMx";  // "(01)12345678901231"
    const std::tuple<const wchar_t*, int, int, const wchar_t*> cases[] = {
        {L"Q09ERTM5", 0, 3, L"Q09ERTM5"},
        {L"Q09E\r\nRTM5\n", 1, 3, L"CODE39"},
        {gs1, 1, 2, L"{FMC1}(01)12345678901231"},
        {gs1, 1, 17, L"{FMC1}(01)12345678901231"},
        {gs1, 1, 99, L"(01)12345678901231"},
        {L"w6gwMQ==", 1, 24, L"\u00E801"},  // opens with FNC1 already
        {L"", 1, 2, L""},
    };
    for (const auto& [value, dataType, codeType, prepared] : cases) {
        EXPECT_EQ(BarcodeFacade2::prepareCodeValue(value, dataType, codeType), prepared)
            << value << " " << codeType;
    }
}

// The symbologies read a code up to its first NUL: a Base64 value that decodes to one is taken
// by no type, by a search neither, and throws nothing.
TEST(Facade, Base64ValueHoldingNulIsTakenByNoType) {
    const wchar_t* const values[] = {L"QQBC", L"AEFC", L"AA=="};  // A\0B, \0AB, \0
    for (const int type : {-1, 2, 4, 5, 6, 16, 18, 19, 20, 21}) {
        for (const wchar_t* value : values) {
            BarcodeFacade2 facade;
            if (type >= 0) {
                facade.setCodeAuto(false);
                facade.setCodeType(static_cast<unsigned>(type));
            }
            facade.setDataType(1);
            EXPECT_NO_THROW(facade.setCodeValue(value)) << type << " " << value;
            EXPECT_EQ(facade.draw().width(), 200u) << type << " " << value;
            EXPECT_NE(facade.getLastError().code(), 0) << type << " " << value;
        }
    }
    BarcodeFacade2 facade;
    facade.setCodeAuto(false);
    facade.setCodeType(4);
    facade.setDataType(1);
    facade.setCodeValue(L"QUJD");
    EXPECT_STREQ(facade.getCodeText(), L"ABC");
    facade.draw();
    EXPECT_EQ(facade.getLastError().code(), 0);
}

TEST(Facade, SettersClampOrRefuse) {
    const Get aspect = std::mem_fn(&F::getAspectRatio);
    const Get font = std::mem_fn(&F::getFont);
    const struct {
        std::function<void(F&)> set;
        Get get;
        const wchar_t* expected;
        unsigned thrown;
    } rows[] = {
        {[](F& f) { f.setCodeSentinel(100); }, number(&F::getCodeSentinel), L"100", 0},
        {[](F& f) { f.setCodeSentinel(101); }, number(&F::getCodeSentinel), L"100", 0},
        {[](F& f) { f.setColumnCount(8001); }, number(&F::getColumnCount), L"8000", 0},
        {[](F& f) { f.setRowCount(~0u); }, number(&F::getRowCount), L"8000", 0},
        {[](F& f) { f.setRow2DCount(7999); }, number(&F::getRow2DCount), L"7999", 0},
        {[](F& f) { f.setECL(9); }, number(&F::getECL), L"8", 0},
        {[](F& f) { f.setQRErrorCorrectionLevel(4); }, number(&F::getQRErrorCorrectionLevel), L"3",
         0},
        {[](F& f) { f.setGS1DatabarRowCount(101); }, number(&F::getGS1DatabarRowCount), L"100", 0},
        {[](F& f) { f.setCanvasRotation(45); }, number(&F::getCanvasRotation), L"0", 0},
        {[](F& f) { f.setCanvasRotation(270); }, number(&F::getCanvasRotation), L"270", 0},
        {[](F& f) { f.setTextPos(2); }, number(&F::getTextPos), L"0", 0},
        {[](F& f) { f.setBarVerticalAlign(0); }, number(&F::getBarVerticalAlign), L"1", 0},
        {[](F& f) { f.setBarVerticalAlign(4); }, number(&F::getBarVerticalAlign), L"1", 0},
        {[](F& f) { f.setDataType(2); }, number(&F::getDataType), L"0", 0},
        {[](F& f) { f.setRowCount(20), f.setFontSize(15); }, number(&F::getFontSize), L"10", 0},
        {[](F& f) { f.setFontSize(60); }, number(&F::getFontSize), L"50", 0},
        {[](F& f) { f.setTextAlign(6); }, number(&F::getTextAlign), L"6", 0},
        {[](F& f) { f.setTextAlign(2), f.setTextAlign(7); }, number(&F::getTextAlign), L"2",
         kWrongValue},
        {[](F& f) { f.setBarAlign(3); }, number(&F::getBarAlign), L"3", 0},
        {[](F& f) { f.setBarAlign(4); }, number(&F::getBarAlign), L"2", kWrongValue},
        {[](F& f) { f.setCodeType(24); }, number(&F::getCodeType), L"24", 0},
        {[](F& f) { f.setCodeType(25); }, number(&F::getCodeType), L"1", kWrongValue},
        {[](F& f) { f.setCodeText(nullptr); }, number(&F::getCodeType), L"1", kUnexpected},
        {[](F& f) { f.setAspectRatio(L"3:2"); }, aspect, L"3:2", 0},
        {[](F& f) { f.setAspectRatio(L"3:2 wide"); }, aspect, L"3:2", 0},
        {[](F& f) { f.setAspectRatio(L"0:0"); }, aspect, L"0:0", 0},
        {[](F& f) { f.setAspectRatio(L"3"); }, aspect, L"1:4", kWrongValue},
        {[](F& f) { f.setAspectRatio(L"a:b"); }, aspect, L"1:4", kWrongValue},
        {[](F& f) { f.setAspectRatio(nullptr); }, aspect, L"1:4", kWrongValue},
        {[](F& f) { f.setFont(L"No such font"); }, font, L"default", 0},
        {[](F& f) { f.setFont(L""); }, font, L"default", kWrongValue},
    };
    for (size_t i = 0; i < std::size(rows); ++i) {
        F facade;
        EXPECT_EQ(thrownCode([&] { rows[i].set(facade); }), rows[i].thrown) << "row " << i;
        EXPECT_EQ(rows[i].get(facade), rows[i].expected) << "row " << i;
    }
}

TEST(Facade, FontsAreSortedAndFoundByExactName) {
    BarcodeFacade2 facade;
    EXPECT_EQ(facade.getFontAt(facade.getFontCount()), L"");
    EXPECT_FALSE(facade.findFont(L"No such font"));
    if (facade.getFontCount() == 0) {
        GTEST_SKIP() << "no system fonts";
    }
    for (unsigned i = 1; i < facade.getFontCount(); ++i) {
        EXPECT_LE(facade.getFontAt(i - 1), facade.getFontAt(i));
    }
    const std::wstring last = facade.getFontAt(facade.getFontCount() - 1);
    facade.setFont(last);
    EXPECT_EQ(facade.getFont(), last);
    EXPECT_TRUE(facade.findFont(last));
}
