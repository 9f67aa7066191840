// Result::text() as UTF-8.
#define ZX_USE_UTF8

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/facade/code_types.h"
#include "BarcodeLib/strategy/abstract_barcode_strategy.h"
#include "tests/code16k/code16k_reader.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;
using VelkoTest::Picture;
using F = ZXing::BarcodeFormat;

namespace {

// The reader of each type, in the order of the code types; None: only our own Code 16K reader,
// or no reader at all.
const F kFormats[kCodeTypeCount] = {
    F::EAN8,       F::EAN13,      F::Code128,    F::Code39,     F::Code128,    F::None,
    F::PDF417,     F::None,       F::ITF,        F::Code39,     F::Code93,     F::ITF,
    F::DataBar,    F::Codabar,    F::EAN13,      F::EAN13,      F::QRCode,     F::DataBarExpanded,
    F::DataMatrix, F::DataMatrix, F::DataMatrix, F::DataMatrix, F::DataMatrix, F::DataMatrix,
    F::DataMatrix};

// What the reader gives where it isn't the raw demo value; "" where the demo can't be drawn.
const std::pair<CodeType, const char*> kReadAs[] = {
    {CodeType::EAN128, "110405092012"},
    {CodeType::EAN13AddOn2, "1234567890128 34"},
    {CodeType::EAN13AddOn5, "1234567890128 12345"},
    {CodeType::DataMatrix4, ""},
    {CodeType::DataMatrix6, "010460082290150711161109302434"},
};

// The demo a fresh facade of the type draws at the demo size, turned by rotation; centred, since
// zxing-cpp misses a square symbol at the top of a picture.
Picture demo(unsigned type, unsigned rotation, PError* error = nullptr) {
    const CodeTypeRow& row = g_codeTypes[type];
    const bool across = rotation % 180 != 0;
    BarcodeFacade2 facade;
    VelkoTest::setUp(facade, type, across ? row.demoHeight : row.demoWidth,
                     across ? row.demoWidth : row.demoHeight, rotation);
    facade.setBarVerticalAlign(2);
    const Picture picture = VelkoTest::render(facade);
    if (error) {
        *error = facade.getLastError();
    }
    return picture;
}

}  // namespace

// What a host shows before any value is set, read back; and every turn of it is the upright
// picture turned, pixel for pixel.
TEST(CodeTypes, EveryDemoReadsBackAtItsDemoSizeInEveryTurn) {
    for (unsigned type = 0; type < kCodeTypeCount; ++type) {
        const CodeTypeRow& row = g_codeTypes[type];
        SCOPED_TRACE(row.name);
        std::unique_ptr<AbstractBarcodeStrategy> strategy(row.make(row.argument));
        PError error;
        const Picture upright = demo(type, 0, &error);
        const char* read = nullptr;
        for (const auto& [readType, text] : kReadAs) {
            read = readType == row.type ? text : read;
        }
        if (read && *read == '\0') {
            EXPECT_EQ(error.code(), 3);
            EXPECT_EQ(std::pair(upright.width, upright.height), std::pair(200u, 100u));
            continue;
        }
        ASSERT_EQ(error.code(), 0);
        const std::string expected = read ? read : VelkoTest::narrow(strategy->getRawDemoValue());
        if (row.type == CodeType::Code16K) {
            EXPECT_EQ(Code16kTest::read(upright).text, expected);
        } else if (kFormats[type] != F::None) {
            ZXing::DecodeHints hints;
            hints.setTryCode39ExtendedMode(row.type == CodeType::Code39Ext)
                .setReturnCodabarStartEnd(true);
            hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Read);
            EXPECT_EQ(VelkoTest::scan(upright, kFormats[type], hints), expected);
        }
        for (unsigned rotation : {90u, 180u, 270u}) {
            Picture turnedBack = demo(type, rotation);
            for (unsigned turn = rotation; turn < 360; turn += 90) {
                turnedBack = VelkoTest::rotate90(turnedBack);
            }
            EXPECT_TRUE(turnedBack.rgba == upright.rgba) << "rotation " << rotation;
        }
    }
}

// Calls that no caller makes in working order: a missing text, tree or root.
TEST(CodeTypes, EveryStrategyRefusesBrokenCallsAndShowsItsDemoWithItsCheck) {
    for (const CodeTypeRow& row : g_codeTypes) {
        SCOPED_TRACE(row.name);
        std::unique_ptr<AbstractBarcodeStrategy> strategy(row.make(row.argument));
        std::wstring text;
        AbstractBarcodeElement* root = nullptr;
        using BarcodeException::Unexpected;
        EXPECT_THROW(strategy->checkRaw(nullptr), Unexpected);
        EXPECT_THROW(strategy->calcCheckSymbol(nullptr, text), Unexpected);
        EXPECT_THROW(strategy->generate(nullptr, &root, 0, 0, true, 400, 400, 1, 0, text),
                     Unexpected);
        EXPECT_THROW(strategy->generate(strategy->getRawDemoValue(), nullptr, 0, 0, true, 400, 400,
                                        1, 0, text),
                     Unexpected);
        EXPECT_THROW(strategy->sizeVisitor(nullptr, 400, 400, 10, 30, 1, 1), Unexpected);

        ASSERT_TRUE(strategy->calcCheckSymbol(strategy->getDemoValue(), text));
        EXPECT_EQ(strategy->getDemoValue() + text, strategy->getRawDemoValue());
    }
}

// What each type takes as a value and as a raw form, and the check symbol it adds: checkRaw
// answers whether the text is a raw form, calcCheckSymbol whether it is a value (null: not), and
// generate takes exactly the raw forms.
TEST(CodeTypes, ValuesRawFormsAndCheckSymbols) {
    using T = CodeType;
    const struct {
        CodeType type;
        const wchar_t* text;
        bool raw;
        const wchar_t* check;
    } cases[] = {
        {T::EAN13, L"123456789012", false, L"8"},
        {T::EAN13, L"400638133393", false, L"1"},
        {T::EAN13, L"4006381333931", true, nullptr},
        {T::EAN13, L"1234567890123", false, nullptr},
        {T::EAN13, L"12345678901", false, nullptr},
        {T::EAN13, L"12345A7890128", false, nullptr},
        {T::EAN8, L"0123456", false, L"5"},
        {T::EAN8, L"9638507", false, L"4"},
        {T::EAN8, L"96385074", true, nullptr},
        {T::EAN8, L"01234564", false, nullptr},
        {T::EAN8, L"012 456", false, nullptr},
        {T::EAN8, L"0123456x", false, nullptr},
        {T::EAN8, L"", false, nullptr},
        {T::Code39, L"CODE39", true, L""},
        {T::Code39, L"A*B", true, L""},
        {T::Code39, L" $%+-./", true, L""},
        {T::Code39, L"Code39", false, nullptr},
        {T::Code39, L"", false, nullptr},
        {T::Code39, L"AB\u00C4", false, nullptr},
        {T::Code39, L"A_B", false, nullptr},
        {T::Code39, L"A,B", false, nullptr},
        {T::Code39Ext, L"Code39 {~}\x7f", true, L""},
        {T::Code39Ext, L"", false, nullptr},
        {T::Code39Ext, L"caf\xe9", false, nullptr},
        {T::Code93, L"\x01 a-Z", true, L""},
        {T::Code93, L"\x80", false, nullptr},
        {T::Standard2of5, L"12345", false, L"7"},
        {T::Standard2of5, L"123457", true, L"0"},
        {T::Standard2of5, L"123456", false, L"1"},
        {T::Standard2of5, L"7", false, L"9"},
        {T::Standard2of5, L"12a4", false, nullptr},
        {T::Interleaved2of5, L"12345", false, L"7"},
        {T::Interleaved2of5, L"123456", true, L"1"},
        {T::Interleaved2of5, L"12 4", false, nullptr},
        {T::ITF14, L"1123456789012", false, L"5"},
        {T::ITF14, L"11234567890125", true, nullptr},
        {T::ITF14, L"11234567890124", false, nullptr},
        {T::Codabar, L"A12345B", true, L""},
        {T::Codabar, L"D-$:/.+C", true, L""},
        {T::Codabar, L"a1b", false, nullptr},
        {T::Codabar, L"A1E2B", false, nullptr},
        {T::Codabar, L"A1B2", false, nullptr},
        // The add-ons check the EAN-13 part's digit but add none of their own.
        {T::EAN13AddOn2, L"123456789012834", true, L""},
        {T::EAN13AddOn2, L"123456789012934", false, L""},
        {T::EAN13AddOn2, L"12345678901283x", false, L""},
        {T::EAN13AddOn2, L"123456789012", false, L""},
        {T::EAN13AddOn2, L"12345678901", false, nullptr},
        {T::EAN13AddOn5, L"123456789012812345", true, L""},
        {T::EAN13AddOn5, L"123456789012834", false, L""},
        {T::RSS14, L"1234567890128", false, L"6"},
        {T::RSS14, L"12345678901286", true, nullptr},
        {T::RSS14, L"12345678901285", false, nullptr},
        {T::RSS14, L"0000000000000", false, L"0"},
        {T::RSS14, L"0000000000013", false, L"0"},
        {T::RSS14, L"9999999999999", false, L"7"},
        {T::RSS14, L"99999999999997", true, nullptr},
        {T::RSS14, L"123456789012", false, nullptr},
        {T::RSS14, L"123456789012865", false, nullptr},
        {T::RSS14, L"12345678901a8", false, nullptr},
        {T::RSS14, L"1234567890128 ", false, nullptr},
    };
    for (const auto& c : cases) {
        const CodeTypeRow& row = g_codeTypes[static_cast<unsigned>(c.type)];
        SCOPED_TRACE(std::string(row.name) + " " + testing::PrintToString(std::wstring(c.text)));
        std::unique_ptr<AbstractBarcodeStrategy> strategy(row.make(row.argument));
        EXPECT_EQ(strategy->checkRaw(c.text), c.raw);
        std::wstring check = L"?";
        EXPECT_EQ(strategy->calcCheckSymbol(c.text, check), c.check != nullptr);
        if (c.check) {
            EXPECT_EQ(check, c.check);
        }
        EXPECT_NE(VelkoTest::refuses(*strategy, c.text,
                                     static_cast<int>(strategy->getDefaultTextAlign())),
                  c.raw);
    }
}
