#pragma once

#include <string>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"
#include "BarcodeLib/strategy/text_layout.h"

namespace BarcodeVelko {

class AbstractBarcodeComposite;

// Code 39: digits, capital letters and seven signs, between the start/stop character '*',
// with no check character.
class StrategyCode39 : public AbstractBarcodeStrategy {
public:
    // 15 modules a character, wide elements 3 modules and narrow ones 1, in the order
    // - . / 0-9 A-Z blank $ % * +.
    static const char g_aszCode39Table[44][16];

    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override { return L"CODE39"; }
    unsigned getDefaultTextAlign() override { return kTextFull; }
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    static bool isAllowed(wchar_t c);
    // Appends the character's pattern and, unless it is the last, the one-module gap.
    static void encodeChar(wchar_t c, AbstractBarcodeComposite* row, bool last);

protected:
    using CharEncoder = void (*)(wchar_t c, AbstractBarcodeComposite* row, bool last);

    // The tree of code between two start/stop characters '*', each character of code appended
    // by encode.
    bool generateFramed(const wchar_t* code, AbstractBarcodeElement** element,
                        std::wstring& codeText, CharEncoder encode);
};

}  // namespace BarcodeVelko
