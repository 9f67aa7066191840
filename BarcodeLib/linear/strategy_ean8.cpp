#include "BarcodeLib/linear/strategy_ean8.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/visitor_size_eanx.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

const char kPreSentinel[] = "0000000";
const char kEdgeSentinel[] = "101";
const char kCenterSentinel[] = "01010";

void insertSentinel(const char* pattern, AbstractBarcodeComposite* row, bool control,
                    unsigned customData, bool last) {
    if (!row) {
        throw BarcodeException::Unexpected();
    }
    encode_line(pattern, row, control, customData, last);
}

bool isDigits(const wchar_t* text, size_t length) {
    size_t count = 0;
    for (; text[count] != 0; ++count) {
        if (count == length || !isDigit(text[count])) {
            return false;
        }
    }
    return count == length;
}

// Weighted from the right: the digit next to the check digit counts three times.
wchar_t checkDigit(const wchar_t* digits, size_t count) {
    unsigned sum = 0;
    for (size_t i = 0; i < count; ++i) {
        const unsigned weight = (count - i) % 2 == 1 ? 3 : 1;
        sum += weight * static_cast<unsigned>(digits[i] - L'0');
    }
    return static_cast<wchar_t>(L'0' + (10 - sum % 10) % 10);
}

}  // namespace

const char StrategyEAN8::g_aszEAN8TableLeftOdd[10][8] = {
    "0001101", "0011001", "0010011", "0111101", "0100011",
    "0110001", "0101111", "0111011", "0110111", "0001011",
};

const char StrategyEAN8::g_aszEAN8TableLeftEven[10][8] = {
    "0100111", "0110011", "0011011", "0100001", "0011101",
    "0111001", "0000101", "0010001", "0001001", "0010111",
};

const char StrategyEAN8::g_aszEAN8TableRightAny[10][8] = {
    "1110010", "1100110", "1101100", "1000010", "1011100",
    "1001110", "1010000", "1000100", "1001000", "1110100",
};

bool StrategyEAN8::checkRaw(const wchar_t* code) {
    return isValidRaw(code, 8);
}

bool StrategyEAN8::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return checkDigitOf(value, 7, check);
}

bool StrategyEAN8::generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign,
                            int, bool showCS, int, int, int, int, std::wstring& codeText) {
    if (!beginGenerate(code, element, textAlign)) {
        return false;
    }
    const std::wstring raw(code);
    settleCodeText(codeText, raw);
    buildColumn(element,
                {[&](BarcodeRow* row) { insertBars(raw, row, textAlign); },
                 [&](BarcodeRow* row) { insertTextRow(codeText, raw, row, textAlign, showCS); }});
    return true;
}

const wchar_t* StrategyEAN8::getDemoValue() {
    return L"0123456";
}

const wchar_t* StrategyEAN8::getRawDemoValue() {
    return L"01234565";
}

unsigned StrategyEAN8::getDefaultTextAlign() {
    return kTextLayoutEAN3;
}

AbstractBarcodeVisitor* StrategyEAN8::sizeVisitor(AbstractBarcodeElement* root,
                                                  unsigned canvasWidth, unsigned canvasHeight,
                                                  unsigned fontSize, unsigned sentinel, unsigned,
                                                  unsigned) {
    return newSizeVisitor<VisitorSizeEANX>(root, canvasWidth, canvasHeight, fontSize, sentinel);
}

void StrategyEAN8::insertPreSentinel(AbstractBarcodeComposite* row, bool control,
                                     unsigned customData) {
    insertSentinel(kPreSentinel, row, control, customData, false);
}

void StrategyEAN8::insertEdgeSentinel(AbstractBarcodeComposite* row, bool control, bool last,
                                      unsigned customData) {
    insertSentinel(kEdgeSentinel, row, control, customData, last);
}

void StrategyEAN8::insertCenterSentinel(AbstractBarcodeComposite* row, bool control,
                                        unsigned customData) {
    insertSentinel(kCenterSentinel, row, control, customData, false);
}

void StrategyEAN8::settleCodeText(std::wstring& codeText, const std::wstring& raw) {
    if (codeText.size() != raw.size()) {
        codeText = raw;
    }
}

bool StrategyEAN8::checkDigitOf(const wchar_t* value, size_t length, std::wstring& check) {
    if (!value) {
        throw BarcodeException::Unexpected();
    }
    if (!isDigits(value, length)) {
        return false;
    }
    check.assign(1, checkDigit(value, length));
    return true;
}

bool StrategyEAN8::isValidRaw(const wchar_t* code, size_t length) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    return isDigits(code, length) && code[length - 1] == checkDigit(code, length - 1);
}

void StrategyEAN8::insertDigit(const char (*set)[8], wchar_t digit, AbstractBarcodeComposite* row,
                               unsigned customData) {
    if (!row || !isDigit(digit)) {
        throw BarcodeException::Unexpected();
    }
    encode_line(set[digit - L'0'], row, false, customData, false);
}

void StrategyEAN8::insertBars(const std::wstring& raw, AbstractBarcodeComposite* row,
                              int textAlign) {
    const bool margins = hasPreSentinels(textAlign);
    if (margins) {
        insertPreSentinel(row, false);
    }
    insertEdgeSentinel(row, false, false);
    for (size_t i = 0; i < 4; ++i) {
        insertDigit(g_aszEAN8TableLeftOdd, raw[i], row, 0);
    }
    insertCenterSentinel(row, false);
    for (size_t i = 4; i < 8; ++i) {
        insertDigit(g_aszEAN8TableRightAny, raw[i], row, 0);
    }
    insertEdgeSentinel(row, false, true);
    if (margins) {
        insertPreSentinel(row, false);
    }
}

void StrategyEAN8::insertTextRow(const std::wstring& text, const std::wstring& raw,
                                 AbstractBarcodeComposite* row, int textAlign, bool showCS) {
    switch (textAlign) {
        case kTextLayoutEAN1:
            insertText(row, kMarginModules, text.substr(0, 1));
            insertEdgeSentinel(row, true, false);
            insertText(row, kEAN8HalfModules, text.substr(1, 3));
            insertCenterSentinel(row, true);
            insertText(row, kEAN8HalfModules, text.substr(4, showCS ? 4 : 3));
            insertEdgeSentinel(row, true, true);
            break;
        case kTextLayoutEAN2:
            // The outer digits come from the raw form, whatever text was given.
            insertText(row, kMarginModules, raw.substr(0, 1));
            insertEdgeSentinel(row, true, false);
            insertText(row, kEAN8HalfModules, text.substr(1, 3));
            insertCenterSentinel(row, true);
            insertText(row, kEAN8HalfModules, text.substr(4, showCS ? 3 : 2));
            insertEdgeSentinel(row, true, true);
            insertText(row, kMarginModules, showCS ? raw.substr(7, 1) : text.substr(6, 1));
            break;
        case kTextLayoutEAN3:
            // Two groups of four whatever showCS says: a lone group of three looks broken.
            insertEdgeSentinel(row, true, false);
            insertText(row, kEAN8HalfModules, text.substr(0, 4));
            insertCenterSentinel(row, true);
            insertText(row, kEAN8HalfModules, text.substr(4, 4));
            insertEdgeSentinel(row, true, true);
            break;
        default:
            insertText(row, kEAN8TextModules, showCS ? text : text.substr(0, 7));
            break;
    }
}

}  // namespace BarcodeVelko
