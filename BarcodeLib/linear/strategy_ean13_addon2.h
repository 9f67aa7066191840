#pragma once

#include <cstddef>
#include <string>

#include "BarcodeLib/linear/strategy_ean13.h"

namespace BarcodeVelko {

// EAN-13 with a 2-digit add-on beside it, whose digits stand above its bars. The value is the
// complete EAN-13 number, check digit included, followed by the add-on; no check symbol is
// reported. The tree is a column of three rows: the upper part of the main bars with the
// add-on's digits, the lower part of the main bars with the add-on's bars, and the main text
// row, whose guard bars continue under the add-on too.
class StrategyEAN13AddOn2 : public StrategyEAN13 {
public:
    bool checkRaw(const wchar_t* code) override;
    // Only the head of 12 digits is checked here; the length and the rest are left to checkRaw.
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    const wchar_t* getRawDemoValue() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

protected:
    // What sets the add-on members apart.
    virtual size_t getAddOnLength();
    // The add-on digit at place takes the even set.
    virtual bool isEvenDigit(const std::wstring& addOn, size_t place);
    // The add-on's last digit in the bars row carries the symbol's last run.
    virtual bool isAddOnEndFlagged();

private:
    // Start, the digits with their separators; last goes to the final digit if lastDigit is set.
    void insertAddOn(const std::wstring& addOn, AbstractBarcodeComposite* row, bool control,
                     unsigned customData, bool lastDigit);
};

}  // namespace BarcodeVelko
