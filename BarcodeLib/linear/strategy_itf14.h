#pragma once

#include "BarcodeLib/linear/strategy_interleaved2of5.h"

namespace BarcodeVelko {

// ITF-14: fourteen digits of Interleaved 2 of 5 in a bearer frame, a column of the upper bearer,
// the symbol row with its vertical bearers and quiet zones, the lower bearer and the text.
class StrategyITF14 : public StrategyInterleaved2of5 {
public:
    bool checkRaw(const wchar_t* code) override;
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
};

}  // namespace BarcodeVelko
