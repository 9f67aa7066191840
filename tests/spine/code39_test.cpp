#include <gtest/gtest.h>

#include <string>

#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_canvas.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/barcode_row.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy_code39.h"
#include "tests/spine/recording_canvas.h"
#include "tests/support/scan_harness.h"

using namespace BarcodeVelko;

namespace {

// Generates, sizes to `moduleWidth` pixels a module and draws `code` on the recorder.
void drawCode39(const wchar_t* code, unsigned moduleWidth, BarcodeCanvas& canvas) {
    StrategyCode39 strategy;
    std::wstring text;
    AbstractBarcodeElement* element = nullptr;
    EXPECT_TRUE(strategy.generate(code, &element, 3, 0, true, 150, 100, 1, 0, text));
    SmartPtr<AbstractBarcodeElement> root(element);
    SmartPtr<AbstractBarcodeVisitor> visitor(strategy.sizeVisitor(
        root.get(), root->getMinWidth() * moduleWidth + moduleWidth - 1, 80, 12, 30, 1, 4));
    root->visit(visitor.get());
    root->draw(&canvas);
}

}  // namespace

TEST(Code39, EveryCharacterScans) {
    // '*' is the reader's start and stop, so it can't be read back from the middle.
    const wchar_t* all = L"-./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%+";
    BarcodeFacade2 facade;
    facade.setCodeType(3);
    facade.setCodeAuto(false);
    facade.setCodeValue(all);
    // One and two pixels a module, with room for the quiet zones.
    for (unsigned width : {16u * 43 + 31 + 40, 2u * (16 * 43 + 31) + 80}) {
        facade.setColumnCount(width);
        EXPECT_EQ(VelkoTest::scan(VelkoTest::render(facade), ZXing::BarcodeFormat::Code39),
                  "-./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ $%+")
            << width;
    }
    // Turned, the symbol runs along the picture's height.
    facade.setRowCount(200);
    facade.setCanvasRotation(90);
    facade.setCodeValue(L"CODE-39");
    EXPECT_EQ(VelkoTest::scan(VelkoTest::render(facade), ZXing::BarcodeFormat::Code39), "CODE-39");
}

TEST(Code39, AcceptsItsCharacterSetOnly) {
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"CODE39", true}, {L"A*B", true},       {L" $%+-./", true}, {L"Code39", false},
        {L"", false},      {L"AB\u00C4", false}, {L"A_B", false},    {L"A,B", false},
    };
    StrategyCode39 strategy;
    for (const auto& [value, valid] : cases) {
        std::wstring check = L"stale";
        EXPECT_EQ(strategy.checkRaw(value), valid) << value;
        EXPECT_EQ(strategy.calcCheckSymbol(value, check), valid) << value;
        EXPECT_EQ(check, L"");
    }
}

TEST(Code39, TreeOfTheDemoValueIs127ModulesUnderItsText) {
    auto* imp = new SpineTest::RecordingCanvasImp;
    BarcodeCanvas canvas(imp);
    drawCode39(StrategyCode39().getDemoValue(), 2, canvas);
    ASSERT_EQ(imp->calls.back().kind, 't');
    EXPECT_EQ(imp->calls.back().text, L"CODE39");
    EXPECT_EQ(imp->calls.back().width, 254u);
    EXPECT_EQ(imp->calls.back().height, 12u);
    unsigned barsWidth = 0;
    for (size_t i = 0; i + 1 < imp->calls.size(); ++i) {
        barsWidth += imp->calls[i].width;
        EXPECT_EQ(imp->calls[i].height, 68u);
        EXPECT_EQ(imp->calls[i].last, i + 2 == imp->calls.size());
    }
    EXPECT_EQ(barsWidth, 254u);
}

TEST(Code39, KeepsAGivenTextAndRefusesWithoutTouchingIt) {
    StrategyCode39 strategy;
    std::wstring text = L"shown";
    AbstractBarcodeElement* element = nullptr;
    ASSERT_TRUE(strategy.generate(L"AB", &element, 3, 0, true, 0, 0, 0, 0, text));
    SmartPtr<AbstractBarcodeElement> root(element);
    EXPECT_EQ(text, L"shown");

    EXPECT_FALSE(strategy.generate(L"ab", &element, 3, 0, true, 0, 0, 0, 0, text));
    EXPECT_EQ(element, nullptr);
    EXPECT_EQ(text, L"shown");

    BarcodeRow row;
    EXPECT_THROW(strategy.generate(L"AB", nullptr, 3, 0, true, 0, 0, 0, 0, text),
                 BarcodeException::Unexpected);
    EXPECT_THROW(strategy.sizeVisitor(nullptr, 1, 1, 1, 1, 1, 1), BarcodeException::Unexpected);
    EXPECT_THROW(StrategyCode39::encodeChar(L'a', &row, false), BarcodeException::Unexpected);
}
