#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

class AbstractBarcodeComposite;

// Code 16K: 2 to 16 rows of five symbol characters from ASCII text, with the Code 128
// character set in code pages A, B and C. The start mode and every change of page follow fixed
// rules with one look at the runs ahead, not a search for the shortest symbol. FNC characters
// are never written.
class StrategyCode16k : public AbstractBarcodeStrategy {
public:
    // Code pages, as a bit mask.
    static constexpr unsigned kPageA = 1;  // characters up to 95
    static constexpr unsigned kPageB = 2;  // characters from 32 to 127
    static constexpr unsigned kPageC = 4;  // pairs of digits

    // Per row, the start character with the guard bar behind it, and the stop character.
    static const char g_aszCode16kStart[16][9];
    static const char g_aszCode16kStop[16][8];
    // Symbol values 0 to 105 are the Code 128 patterns with bars and spaces exchanged; 106 has
    // a pattern of its own.
    static const char g_szCode16kValue106[12];

    // The row counts of a symbol.
    static constexpr unsigned kMinRows = 2;
    static constexpr unsigned kMaxRows = 16;
    static constexpr unsigned kValuesPerRow = 5;
    // The widths in modules of the bars above and below the symbol and of a data row.
    static constexpr unsigned kSymbolModules = 80;
    static constexpr unsigned kRowModules = 75;

    bool checkRaw(const wchar_t* code) override;
    // There is no check symbol to show: check comes back empty.
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    // Reads only code and element, and clears codeText: the symbol has no text.
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    const wchar_t* getRawDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    // The symbol values in order, mode character first and both check characters last; false
    // and an empty vector for an empty text, a character above 127, or more than 16 rows.
    // A null text throws Unexpected, a std::exception on the way OutOfMemory.
    static bool parseMessage(const wchar_t* text, std::vector<unsigned>& values);
    // The value of c in page A or B.
    static unsigned getSymbolValue(wchar_t c);
    // How many characters the next symbol character takes from position in page: 0 if it can't
    // go there, else 1, or 2 for a pair in page C; value receives its value.
    static size_t tryPage(const wchar_t* text, size_t length, size_t position, unsigned page,
                          unsigned& value);
    // How many symbol characters page can write from position on. In pages A and B a pair of
    // digits ends the run, even where the page could hold it.
    static size_t getSequenceLength(const wchar_t* text, size_t length, size_t position,
                                    unsigned page);
    // Appends the pattern of a symbol value with control false and customData rows; a value
    // above 106 throws Unexpected.
    static void encodeValue(unsigned value, AbstractBarcodeComposite* row, unsigned rows);
};

}  // namespace BarcodeVelko
