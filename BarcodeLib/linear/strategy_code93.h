#pragma once

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

// Code 93 over the whole of ASCII, with its two check characters C and K, which the text
// doesn't show.
class StrategyCode93 : public AbstractBarcodeStrategy {
public:
    // Values 0..46, then the start and the stop with its termination bar.
    static const char g_aszCode93Table[49][11];

    // The values of c: 1 with the value in first, or 2 with a shift in first and a letter in
    // second. Throws Unexpected outside 0..127.
    static unsigned translateSymbol(wchar_t c, unsigned& first, unsigned& second);

    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;
};

}  // namespace BarcodeVelko
