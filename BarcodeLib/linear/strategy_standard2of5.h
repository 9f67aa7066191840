#pragma once

#include <cstddef>
#include <string>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

// Standard (Industrial) 2 of 5: digits in the bars only, with a check digit. It also holds what
// the interleaved members of the family share: the digit count and the check digit.
class StrategyStandard2of5 : public AbstractBarcodeStrategy {
public:
    // Digits 0..9 with their trailing gap, then the start and the stop.
    static const char g_aszStandard2of5Table[12][15];

    bool checkRaw(const wchar_t* code) override;
    // Any non-empty string of digits; only an odd count gives a raw form of even length.
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    const wchar_t* getRawDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

protected:
    // The number of characters of text if all are digits, else 0. Throws Unexpected for null.
    static size_t countDigits(const wchar_t* text);
    // Weights 3, 1, 3 ... from the first digit, whatever the count.
    static wchar_t checkDigit(const wchar_t* digits, size_t count);
    // The last of count digits is the check digit of those before it.
    static bool hasCheckDigit(const wchar_t* digits, size_t count);
};

}  // namespace BarcodeVelko
