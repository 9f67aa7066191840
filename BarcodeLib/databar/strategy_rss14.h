#pragma once

#include <string>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

// RSS-14 (GS1 DataBar Omnidirectional) at full height in one row: a GTIN of 13 digits and its
// mod-10 check digit. The data characters are looked up in expanded tables rather than worked
// out from the combinatorial width functions.
class StrategyRSS14 : public AbstractBarcodeStrategy {
public:
    // The eight element widths of each value of an outside (16 modules) and an inside
    // (15 modules) data character, odd-set widths at even positions.
    static const unsigned char g_auOutsidePatterns[2841][8];
    static const unsigned char g_auInsidePatterns[1597][8];
    // The widths of finder patterns 0 to 8.
    static const unsigned char g_auFinders[9][5];
    // 3 to the power k modulo 79, the weight of element k in the check sum.
    static const unsigned char g_auWeights[32];

    // The number of widths that encodeValue fills.
    static constexpr unsigned kElementCount = 46;

    // True for 13 digits followed by their check digit.
    bool checkRaw(const wchar_t* code) override;
    // True for 13 digits; check receives their check digit.
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

    // Fills widths with the kElementCount element widths of the symbol for value, below 10^13,
    // from the left guard's space to the right guard's bar; answers the left finder's number.
    static unsigned encodeValue(unsigned long long value, unsigned char* widths);
};

}  // namespace BarcodeVelko
