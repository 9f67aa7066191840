#pragma once

#include "BarcodeLib/linear/strategy_code39.h"

namespace BarcodeVelko {

// Extended Code 39: the whole of ASCII, each character that Code 39 lacks as a shift ($, %, /
// or +) and a letter. The inherited calcCheckSymbol applies this class's checkRaw.
class StrategyCode39Ext : public StrategyCode39 {
public:
    bool checkRaw(const wchar_t* code) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;

    // Appends the one or two Code 39 characters of c; last goes to the second. Throws Unexpected
    // outside 0..127 or for a null row.
    static void encodeChar(wchar_t c, AbstractBarcodeComposite* row, bool last);
};

}  // namespace BarcodeVelko
