#pragma once

#include "BarcodeLib/linear/strategy_standard2of5.h"

namespace BarcodeVelko {

class AbstractBarcodeComposite;

// Interleaved 2 of 5: digits by pairs, the first of a pair in the bars and the second in the
// spaces. Its check digit, demo values and sizing are those of Standard 2 of 5.
class StrategyInterleaved2of5 : public StrategyStandard2of5 {
public:
    // The five element widths of the digits 0..9 (1 narrow, 2 wide), then the start and the stop
    // as module patterns.
    static const char g_aszInterleaved2of5Table[12][8];

    // An even number of digits; the check digit isn't tested.
    bool checkRaw(const wchar_t* code) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;

protected:
    // Start, the pairs of an even number of digits, stop; last goes to the stop. Anything else
    // than pairs of digits throws Unexpected.
    static void insertSymbol(const wchar_t* digits, AbstractBarcodeComposite* row, bool last);
};

}  // namespace BarcodeVelko
