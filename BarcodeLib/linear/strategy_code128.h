#pragma once

#include <string>
#include <vector>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

class AbstractBarcodeComposite;

// Code 128 for 7-bit text. The character set is chosen one symbol character at a time, with one
// character of look-ahead, and every change of set is a latch: simple and predictable rather
// than the shortest symbol.
class StrategyCode128 : public AbstractBarcodeStrategy {
public:
    // One pattern per symbol value: 0..105 of 11 modules (103, 104, 105 start sets A, B, C),
    // the 13-module stop at 106 and 11 light modules at 107.
    static const char g_aszCode128Table[108][14];

    bool checkRaw(const wchar_t* code) override;
    // The modulo-103 check character is never shown, so check always comes back empty.
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    // Sets are 0 (A), 1 (B) and 2 (C). The set for c on its own, given the current one; a
    // character above 127 throws Unexpected.
    virtual unsigned encodeAs(wchar_t c, unsigned current);
    // Set C for a pair of digits, otherwise the set for c on its own.
    virtual unsigned encodeAs(wchar_t c, wchar_t next, unsigned current);
    // Appends the pattern of a symbol value; a value above 107 throws Unexpected.
    static void encodeValue(unsigned value, AbstractBarcodeComposite* row, bool control);

    // The symbol values of code from start to stop, check character included; empty for a
    // string that checkRaw refuses.
    virtual std::vector<unsigned> symbolValues(const wchar_t* code);

protected:
    // The symbol values of a non-empty text that is known to encode, from start to stop.
    std::vector<unsigned> encodeSymbolValues(const std::wstring& text);
    // The value of c in set A or B.
    virtual unsigned characterValue(wchar_t c);
    // The tree: the bars of values, and codeText under them, text if codeText is empty.
    void buildSymbol(const std::wstring& text, const std::vector<unsigned>& values,
                     AbstractBarcodeElement** element, std::wstring& codeText);
};

}  // namespace BarcodeVelko
