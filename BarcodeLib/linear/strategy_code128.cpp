#include "BarcodeLib/linear/strategy_code128.h"

#include <exception>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/full_ascii_table.h"
#include "BarcodeLib/linear/visitor_size_code_x.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

const char StrategyCode128::g_aszCode128Table[108][14] = {
    "11011001100", "11001101100", "11001100110", "10010011000", "10010001100",   "10001001100",
    "10011001000", "10011000100", "10001100100", "11001001000", "11001000100",   "11000100100",
    "10110011100", "10011011100", "10011001110", "10111001100", "10011101100",   "10011100110",
    "11001110010", "11001011100", "11001001110", "11011100100", "11001110100",   "11101101110",
    "11101001100", "11100101100", "11100100110", "11101100100", "11100110100",   "11100110010",
    "11011011000", "11011000110", "11000110110", "10100011000", "10001011000",   "10001000110",
    "10110001000", "10001101000", "10001100010", "11010001000", "11000101000",   "11000100010",
    "10110111000", "10110001110", "10001101110", "10111011000", "10111000110",   "10001110110",
    "11101110110", "11010001110", "11000101110", "11011101000", "11011100010",   "11011101110",
    "11101011000", "11101000110", "11100010110", "11101101000", "11101100010",   "11100011010",
    "11101111010", "11001000010", "11110001010", "10100110000", "10100001100",   "10010110000",
    "10010000110", "10000101100", "10000100110", "10110010000", "10110000100",   "10011010000",
    "10011000010", "10000110100", "10000110010", "11000010010", "11001010000",   "11110111010",
    "11000010100", "10001111010", "10100111100", "10010111100", "10010011110",   "10111100100",
    "10011110100", "10011110010", "11110100100", "11110010100", "11110010010",   "11011011110",
    "11011110110", "11110110110", "10101111000", "10100011110", "10001011110",   "10111101000",
    "10111100010", "11110101000", "11110100010", "10111011110", "10111101110",   "11101011110",
    "11110101110", "11010000100", "11010010000", "11010011100", "1100011101011", "00000000000",
};

namespace {

constexpr unsigned kSetA = 0;
constexpr unsigned kSetB = 1;
constexpr unsigned kSetC = 2;
constexpr unsigned kStartA = 103;
constexpr unsigned kCodeA = 101;  // CODE A; CODE B and CODE C are the two values below it
constexpr unsigned kStop = 106;
constexpr unsigned kModulesPerValue = 11;

unsigned codePoint(wchar_t c) {
    return static_cast<unsigned>(c);
}

}  // namespace

bool StrategyCode128::checkRaw(const wchar_t* code) {
    return isFullAscii(code);
}

bool StrategyCode128::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    check.clear();
    return checkRaw(value);
}

bool StrategyCode128::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int,
                               bool, int, int, int, int, std::wstring& codeText) {
    if (!beginGenerate(code, element)) {
        return false;
    }
    try {
        buildSymbol(code, symbolValues(code), element, codeText);
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
    return true;
}

const wchar_t* StrategyCode128::getDemoValue() {
    return L"Code128 example";
}

unsigned StrategyCode128::getDefaultTextAlign() {
    return kTextFull;
}

AbstractBarcodeVisitor* StrategyCode128::sizeVisitor(AbstractBarcodeElement* root,
                                                     unsigned canvasWidth, unsigned canvasHeight,
                                                     unsigned fontSize, unsigned sentinel, unsigned,
                                                     unsigned) {
    return newSizeVisitor<VisitorSizeCodeX>(root, canvasWidth, canvasHeight, fontSize, sentinel);
}

unsigned StrategyCode128::encodeAs(wchar_t c, unsigned current) {
    const unsigned code = codePoint(c);
    if (code > 127) {
        throw BarcodeException::Unexpected();
    }
    if (code < 32) {
        return kSetA;
    }
    if (code >= 96) {
        return kSetB;
    }
    return current == kSetC ? kSetA : current;
}

unsigned StrategyCode128::encodeAs(wchar_t c, wchar_t next, unsigned current) {
    if (isDigit(c) && isDigit(next)) {
        return kSetC;
    }
    return encodeAs(c, current);
}

void StrategyCode128::encodeValue(unsigned value, AbstractBarcodeComposite* row, bool control) {
    if (value >= sizeof(g_aszCode128Table) / sizeof(g_aszCode128Table[0])) {
        throw BarcodeException::Unexpected();
    }
    encode_line(g_aszCode128Table[value], row, control, 0, false);
}

void StrategyCode128::buildSymbol(const std::wstring& text, const std::vector<unsigned>& values,
                                  AbstractBarcodeElement** element, std::wstring& codeText) {
    // The text spans whole symbol characters: the stop's two extra modules stay outside.
    buildLinearSymbol(
        text, element, codeText,
        [&values](BarcodeRow* row) {
            for (unsigned value : values) {
                encodeValue(value, row, false);
            }
        },
        static_cast<unsigned>(kModulesPerValue * values.size()));
}

unsigned StrategyCode128::characterValue(wchar_t c) {
    const unsigned code = codePoint(c);
    return code < 32 ? code + 64 : code - 32;
}

std::vector<unsigned> StrategyCode128::symbolValues(const wchar_t* code) {
    if (!checkRaw(code)) {
        return std::vector<unsigned>();
    }
    return encodeSymbolValues(code);
}

std::vector<unsigned> StrategyCode128::encodeSymbolValues(const std::wstring& text) {
    std::vector<unsigned> values;
    const size_t length = text.size();
    unsigned set = length > 1 ? encodeAs(text[0], text[1], kSetA) : encodeAs(text[0], kSetA);
    values.push_back(kStartA + set);
    unsigned sum = values.back();
    unsigned weight = 1;
    auto append = [&](unsigned value) {
        values.push_back(value);
        sum += weight * value;
        ++weight;
    };
    for (size_t i = 0; i < length; ++i) {
        const unsigned next =
            i + 1 < length ? encodeAs(text[i], text[i + 1], set) : encodeAs(text[i], 0, set);
        if (next != set) {
            append(kCodeA - next);
            set = next;
        }
        if (set == kSetC) {
            append(10 * (codePoint(text[i]) - L'0') + codePoint(text[i + 1]) - L'0');
            ++i;
        } else {
            append(characterValue(text[i]));
        }
    }
    values.push_back(sum % 103);
    values.push_back(kStop);
    return values;
}

}  // namespace BarcodeVelko
