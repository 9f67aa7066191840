#pragma once

#include "BarcodeLib/linear/strategy_ean8.h"

namespace BarcodeVelko {

// EAN-13: the first digit is carried by the parity pattern of the left half.
class StrategyEAN13 : public StrategyEAN8 {
public:
    // For each first digit, 1 where the third to seventh digit take the even set; the second
    // digit is always odd. Only the first 5 bytes of a row are used.
    static const unsigned char g_abParity[10][10];

    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    const wchar_t* getRawDemoValue() override;
    unsigned getDefaultTextAlign() override;

protected:
    // The bars row of EAN-13 for a checked raw form whose first 13 characters are the digits:
    // [pre-sentinel] edge, digits 1 to 6 by the parity of digit 0, centre, digits 7 to 12, edge
    // (the symbol's last run) [pre-sentinel]. Every leaf has control false and customData.
    // EAN-13 itself asks for both pre-sentinels in layouts 4 and 5 only.
    static void insertBars13(const std::wstring& raw, AbstractBarcodeComposite* row,
                             bool leadingPreSentinel, bool trailingPreSentinel,
                             unsigned customData);
    // The text row of EAN-13 below those bars, for a text of at least 13 characters:
    // layouts 4 to 6 lay texts of characters 0 to 12 between guard bars of control true, so
    // that each text stands under its half of the bars; layout 5 ends with the closing digit
    // in a text of 7 modules where the trailing pre-sentinel is. Layouts 0 to 3 give one
    // text of 95 modules: the whole text with showCS, else its first 12 characters.
    static void insertTextRow13(const std::wstring& text, AbstractBarcodeComposite* row,
                                int textAlign, bool showCS);
};

}  // namespace BarcodeVelko
