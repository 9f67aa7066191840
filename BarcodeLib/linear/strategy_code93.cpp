#include "BarcodeLib/linear/strategy_code93.h"

#include <exception>
#include <string>
#include <vector>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/full_ascii_table.h"
#include "BarcodeLib/linear/visitor_size_code_x.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

const unsigned kStart = 47;
const unsigned kStop = 48;
const unsigned kModulo = 47;

// The value of a character of the Code 39 set as the full-ASCII table writes it; the shifts
// take the shift values 43 to 46, not the native ones of $, %, / and +.
unsigned valueOf(char c, bool shift) {
    if (c >= '0' && c <= '9') {
        return static_cast<unsigned>(c - '0');
    }
    if (c >= 'A' && c <= 'Z') {
        return static_cast<unsigned>(c - 'A') + 10;
    }
    const char* const natives = shift ? "$%/+" : "-. ";
    const unsigned base = shift ? 43 : 36;
    for (unsigned i = 0; natives[i]; ++i) {
        if (natives[i] == c) {
            return base + i;
        }
    }
    throw BarcodeException::Unexpected();
}

// Weights run 1, 2, ... maxWeight from the last value and start again.
void appendCheck(std::vector<unsigned>& values, unsigned maxWeight) {
    unsigned sum = 0;
    unsigned weight = 1;
    for (auto it = values.rbegin(); it != values.rend(); ++it) {
        sum = (sum + *it * weight) % kModulo;
        weight = weight % maxWeight + 1;
    }
    values.push_back(sum);
}

}  // namespace

// clang-format off
const char StrategyCode93::g_aszCode93Table[49][11] = {
    "100010100", "101001000", "101000100", "101000010", "100101000",
    "100100100", "100100010", "101010000", "100010010", "100001010",
    "110101000", "110100100", "110100010", "110010100", "110010010",
    "110001010", "101101000", "101100100", "101100010", "100110100",
    "100011010", "101011000", "101001100", "101000110", "100101100",
    "100010110", "110110100", "110110010", "110101100", "110100110",
    "110010110", "110011010", "101101100", "101100110", "100110110",
    "100111010", "100101110", "111010100", "111010010", "111001010",
    "101101110", "101110110", "110101110", "100100110", "111011010",
    "111010110", "100110010", "101011110", "1010111101",
};
// clang-format on

unsigned StrategyCode93::translateSymbol(wchar_t c, unsigned& first, unsigned& second) {
    const char* const pair = fullAsciiPair(c);
    if (!pair[1]) {
        first = valueOf(pair[0], false);
        second = 0;
        return 1;
    }
    first = valueOf(pair[0], true);
    second = valueOf(pair[1], false);
    return 2;
}

bool StrategyCode93::checkRaw(const wchar_t* code) {
    return isFullAscii(code);
}

bool StrategyCode93::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return calcNoCheckSymbol(value, check);
}

bool StrategyCode93::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int, bool,
                              int, int, int, int, std::wstring& codeText) {
    if (!beginGenerate(code, element)) {
        return false;
    }
    std::vector<unsigned> values;
    try {
        for (const wchar_t* c = code; *c; ++c) {
            unsigned first = 0;
            unsigned second = 0;
            const unsigned count = translateSymbol(*c, first, second);
            values.push_back(first);
            if (count == 2) {
                values.push_back(second);
            }
        }
        appendCheck(values, 20);
        appendCheck(values, 15);
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
    buildLinearSymbol(code, element, codeText, [&values](BarcodeRow* row) {
        encode_line(g_aszCode93Table[kStart], row, false, 0, false);
        for (unsigned value : values) {
            encode_line(g_aszCode93Table[value], row, false, 0, false);
        }
        encode_line(g_aszCode93Table[kStop], row, false, 0, true);
    });
    return true;
}

const wchar_t* StrategyCode93::getDemoValue() {
    return L"Code93";
}

unsigned StrategyCode93::getDefaultTextAlign() {
    return kTextFull;
}

AbstractBarcodeVisitor* StrategyCode93::sizeVisitor(AbstractBarcodeElement* root,
                                                    unsigned canvasWidth, unsigned canvasHeight,
                                                    unsigned fontSize, unsigned sentinel, unsigned,
                                                    unsigned) {
    return newSizeVisitor<VisitorSizeCodeX>(root, canvasWidth, canvasHeight, fontSize, sentinel);
}

}  // namespace BarcodeVelko
