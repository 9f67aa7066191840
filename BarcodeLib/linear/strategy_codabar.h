#pragma once

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

// Codabar: the user's string with its own start and stop letters A to D, no check character.
class StrategyCodaBar : public AbstractBarcodeStrategy {
public:
    // Digits, then - $ : / . +, then the start and stop characters A to D; wide elements of 2.
    static const char g_aszTable[20][13];

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
