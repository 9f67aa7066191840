#include "BarcodeLib/linear/strategy_standard2of5.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/visitor_size_2of5.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

const unsigned kStart = 10;
const unsigned kStop = 11;

}  // namespace

// Wide bars of 3 modules, narrow bars and all gaps of 1; start and stop have wide bars of 2.
const char StrategyStandard2of5::g_aszStandard2of5Table[12][15] = {
    "10101110111010", "11101010101110", "10111010101110", "11101110101010",
    "10101110101110", "11101011101010", "10111011101010", "10101011101110",
    "11101010111010", "10111010111010", "11011010",       "1101011",
};

bool StrategyStandard2of5::checkRaw(const wchar_t* code) {
    const size_t count = countDigits(code);
    return count >= 2 && count % 2 == 0 && hasCheckDigit(code, count);
}

bool StrategyStandard2of5::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    const size_t count = countDigits(value);
    if (count == 0) {
        return false;
    }
    check.assign(1, checkDigit(value, count));
    return true;
}

bool StrategyStandard2of5::generate(const wchar_t* code, AbstractBarcodeElement** element,
                                    int textAlign, int, bool, int, int, int, int,
                                    std::wstring& codeText) {
    if (!beginGenerate(code, element, textAlign)) {
        return false;
    }
    buildLinearSymbol(code, element, codeText, [code](BarcodeRow* row) {
        encode_line(g_aszStandard2of5Table[kStart], row, false, 0, false);
        for (const wchar_t* digit = code; *digit; ++digit) {
            encode_line(g_aszStandard2of5Table[*digit - L'0'], row, false, 0, false);
        }
        encode_line(g_aszStandard2of5Table[kStop], row, false, 0, true);
    });
    return true;
}

const wchar_t* StrategyStandard2of5::getDemoValue() {
    return L"12345";
}

const wchar_t* StrategyStandard2of5::getRawDemoValue() {
    return L"123457";
}

unsigned StrategyStandard2of5::getDefaultTextAlign() {
    return kTextCentre;
}

AbstractBarcodeVisitor* StrategyStandard2of5::sizeVisitor(AbstractBarcodeElement* root,
                                                          unsigned canvasWidth,
                                                          unsigned canvasHeight, unsigned fontSize,
                                                          unsigned, unsigned, unsigned) {
    return newSizeVisitor<VisitorSize2of5>(root, canvasWidth, canvasHeight, fontSize);
}

size_t StrategyStandard2of5::countDigits(const wchar_t* text) {
    if (!text) {
        throw BarcodeException::Unexpected();
    }
    size_t count = 0;
    for (; text[count]; ++count) {
        if (!isDigit(text[count])) {
            return 0;
        }
    }
    return count;
}

wchar_t StrategyStandard2of5::checkDigit(const wchar_t* digits, size_t count) {
    unsigned sum = 0;
    for (size_t i = 0; i < count; ++i) {
        sum = (sum + (i % 2 == 0 ? 3u : 1u) * static_cast<unsigned>(digits[i] - L'0')) % 10;
    }
    return static_cast<wchar_t>(L'0' + (10 - sum) % 10);
}

bool StrategyStandard2of5::hasCheckDigit(const wchar_t* digits, size_t count) {
    return count >= 2 && digits[count - 1] == checkDigit(digits, count - 1);
}

}  // namespace BarcodeVelko
