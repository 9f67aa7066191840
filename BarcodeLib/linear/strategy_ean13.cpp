#include "BarcodeLib/linear/strategy_ean13.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

const unsigned char StrategyEAN13::g_abParity[10][10] = {
    {0, 0, 0, 0, 0}, {0, 1, 0, 1, 1}, {0, 1, 1, 0, 1}, {0, 1, 1, 1, 0}, {1, 0, 0, 1, 1},
    {1, 1, 0, 0, 1}, {1, 1, 1, 0, 0}, {1, 0, 1, 0, 1}, {1, 0, 1, 1, 0}, {1, 1, 0, 1, 0},
};

bool StrategyEAN13::checkRaw(const wchar_t* code) {
    return isValidRaw(code, 13);
}

bool StrategyEAN13::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return checkDigitOf(value, 12, check);
}

bool StrategyEAN13::generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign,
                             int, bool showCS, int, int, int, int, std::wstring& codeText) {
    if (!beginGenerate(code, element, textAlign)) {
        return false;
    }
    const std::wstring raw(code);
    settleCodeText(codeText, raw);
    const bool margins = hasPreSentinels(textAlign);
    buildColumn(element,
                {[&](BarcodeRow* row) { insertBars13(raw, row, margins, margins, 0); },
                 [&](BarcodeRow* row) { insertTextRow13(codeText, row, textAlign, showCS); }});
    return true;
}

const wchar_t* StrategyEAN13::getDemoValue() {
    return L"123456789012";
}

const wchar_t* StrategyEAN13::getRawDemoValue() {
    return L"1234567890128";
}

unsigned StrategyEAN13::getDefaultTextAlign() {
    return kTextLayoutEAN1;
}

void StrategyEAN13::insertBars13(const std::wstring& raw, AbstractBarcodeComposite* row,
                                 bool leadingPreSentinel, bool trailingPreSentinel,
                                 unsigned customData) {
    if (raw.size() < 13 || raw[0] < L'0' || raw[0] > L'9') {
        throw BarcodeException::Unexpected();
    }
    const unsigned char* parity = g_abParity[raw[0] - L'0'];
    if (leadingPreSentinel) {
        insertPreSentinel(row, false, customData);
    }
    insertEdgeSentinel(row, false, false, customData);
    insertDigit(g_aszEAN8TableLeftOdd, raw[1], row, customData);
    for (size_t i = 2; i < 7; ++i) {
        insertDigit(parity[i - 2] ? g_aszEAN8TableLeftEven : g_aszEAN8TableLeftOdd, raw[i], row,
                    customData);
    }
    insertCenterSentinel(row, false, customData);
    for (size_t i = 7; i < 13; ++i) {
        insertDigit(g_aszEAN8TableRightAny, raw[i], row, customData);
    }
    insertEdgeSentinel(row, false, true, customData);
    if (trailingPreSentinel) {
        insertPreSentinel(row, false, customData);
    }
}

void StrategyEAN13::insertTextRow13(const std::wstring& text, AbstractBarcodeComposite* row,
                                    int textAlign, bool showCS) {
    if (text.size() < 13) {
        throw BarcodeException::Unexpected();
    }
    switch (textAlign) {
        case kTextLayoutEAN1:
            insertText(row, kMarginModules, text.substr(0, 1));
            insertEdgeSentinel(row, true, false);
            insertText(row, kEAN13HalfModules, text.substr(1, 6));
            insertCenterSentinel(row, true);
            insertText(row, kEAN13HalfModules, text.substr(7, showCS ? 6 : 5));
            insertEdgeSentinel(row, true, true);
            break;
        case kTextLayoutEAN2: {
            // Without the check digit the remaining digits move one place to the right.
            const size_t shift = showCS ? 0 : 1;
            insertText(row, kMarginModules, text.substr(0, 1));
            insertEdgeSentinel(row, true, false);
            insertText(row, kEAN13HalfModules, text.substr(1, 6 - shift));
            insertCenterSentinel(row, true);
            insertText(row, kEAN13HalfModules, text.substr(7 - shift, 5));
            insertEdgeSentinel(row, true, true);
            insertText(row, kMarginModules, text.substr(12 - shift, 1));
            break;
        }
        case kTextLayoutEAN3:
            insertEdgeSentinel(row, true, false);
            insertText(row, kEAN13HalfModules, text.substr(0, showCS ? 7 : 6));
            insertCenterSentinel(row, true);
            insertText(row, kEAN13HalfModules, text.substr(showCS ? 7 : 6, 6));
            insertEdgeSentinel(row, true, true);
            break;
        default:
            insertText(row, kEAN13TextModules, showCS ? text : text.substr(0, 12));
            break;
    }
}

}  // namespace BarcodeVelko
