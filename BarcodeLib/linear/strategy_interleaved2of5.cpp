#include "BarcodeLib/linear/strategy_interleaved2of5.h"

#include <string>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/tree/abstract_barcode_composite.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

const unsigned kStart = 10;
const unsigned kStop = 11;
const unsigned kElements = 5;

}  // namespace

const char StrategyInterleaved2of5::g_aszInterleaved2of5Table[12][8] = {
    "11221", "21112", "12112", "22111", "11212", "21211",
    "12211", "11122", "21121", "12121", "1010",  "1101",
};

bool StrategyInterleaved2of5::checkRaw(const wchar_t* code) {
    const size_t count = countDigits(code);
    return count > 0 && count % 2 == 0;
}

bool StrategyInterleaved2of5::generate(const wchar_t* code, AbstractBarcodeElement** element,
                                       int textAlign, int, bool, int, int, int, int,
                                       std::wstring& codeText) {
    if (!beginGenerate(code, element, textAlign)) {
        return false;
    }
    buildLinearSymbol(code, element, codeText,
                      [code](BarcodeRow* row) { insertSymbol(code, row, true); });
    return true;
}

void StrategyInterleaved2of5::insertSymbol(const wchar_t* digits, AbstractBarcodeComposite* row,
                                           bool last) {
    if (!digits || !row) {
        throw BarcodeException::Unexpected();
    }
    encode_line(g_aszInterleaved2of5Table[kStart], row, false, 0, false);
    for (; *digits; digits += 2) {
        if (!isDigit(digits[0]) || !isDigit(digits[1])) {
            throw BarcodeException::Unexpected();
        }
        const char* const bars = g_aszInterleaved2of5Table[digits[0] - L'0'];
        const char* const spaces = g_aszInterleaved2of5Table[digits[1] - L'0'];
        std::string pair;
        for (unsigned i = 0; i < kElements; ++i) {
            pair.append(static_cast<size_t>(bars[i] - '0'), '1');
            pair.append(static_cast<size_t>(spaces[i] - '0'), '0');
        }
        encode_line(pair.c_str(), row, false, 0, false);
    }
    encode_line(g_aszInterleaved2of5Table[kStop], row, false, 0, last);
}

}  // namespace BarcodeVelko
