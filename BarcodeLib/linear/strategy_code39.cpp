#include "BarcodeLib/linear/strategy_code39.h"

#include <cwchar>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/visitor_size_code_x.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

const char StrategyCode39::g_aszCode39Table[44][16] = {
    "100010101110111",  // -
    "111000101011101",  // .
    "100010001010001",  // /
    "101000111011101",  // 0
    "111010001010111",  // 1
    "101110001010111",  // 2
    "111011100010101",  // 3
    "101000111010111",  // 4
    "111010001110101",  // 5
    "101110001110101",  // 6
    "101000101110111",  // 7
    "111010001011101",  // 8
    "101110001011101",  // 9
    "111010100010111",  // A
    "101110100010111",  // B
    "111011101000101",  // C
    "101011100010111",  // D
    "111010111000101",  // E
    "101110111000101",  // F
    "101010001110111",  // G
    "111010100011101",  // H
    "101110100011101",  // I
    "101011100011101",  // J
    "111010101000111",  // K
    "101110101000111",  // L
    "111011101010001",  // M
    "101011101000111",  // N
    "111010111010001",  // O
    "101110111010001",  // P
    "101010111000111",  // Q
    "111010101110001",  // R
    "101110101110001",  // S
    "101011101110001",  // T
    "111000101010111",  // U
    "100011101010111",  // V
    "111000111010101",  // W
    "100010111010111",  // X
    "111000101110101",  // Y
    "100011101110101",  // Z
    "100011101011101",  // blank
    "100010001000101",  // $
    "101000100010001",  // %
    "100010111011101",  // *
    "100010100010001",  // +
};

namespace {

// Row of c in the table, or -1.
int tableIndex(wchar_t c) {
    if (c >= L'-' && c <= L'9') {
        return c - L'-';
    }
    if (c >= L'A' && c <= L'Z') {
        return 13 + (c - L'A');
    }
    static const wchar_t kSigns[] = L" $%*+";
    const wchar_t* sign = c == L'\0' ? nullptr : std::wcschr(kSigns, c);
    return sign == nullptr ? -1 : 39 + static_cast<int>(sign - kSigns);
}

}  // namespace

bool StrategyCode39::isAllowed(wchar_t c) {
    return tableIndex(c) >= 0;
}

void StrategyCode39::encodeChar(wchar_t c, AbstractBarcodeComposite* row, bool last) {
    const int index = tableIndex(c);
    if (row == nullptr || index < 0) {
        throw BarcodeException::Unexpected();
    }
    encode_line(g_aszCode39Table[index], row, false, 0, last);
    if (!last) {
        encode_line("0", row, false, 0, false);
    }
}

bool StrategyCode39::checkRaw(const wchar_t* code) {
    if (code == nullptr) {
        throw BarcodeException::Unexpected();
    }
    if (*code == L'\0') {
        return false;
    }
    for (const wchar_t* c = code; *c != L'\0'; ++c) {
        if (!isAllowed(*c)) {
            return false;
        }
    }
    return true;
}

bool StrategyCode39::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    check.clear();
    return checkRaw(value);
}

bool StrategyCode39::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int, bool,
                              int, int, int, int, std::wstring& codeText) {
    return generateFramed(code, element, codeText, encodeChar);
}

AbstractBarcodeVisitor* StrategyCode39::sizeVisitor(AbstractBarcodeElement* root,
                                                    unsigned canvasWidth, unsigned canvasHeight,
                                                    unsigned fontSize, unsigned sentinel, unsigned,
                                                    unsigned) {
    return newSizeVisitor<VisitorSizeCodeX>(root, canvasWidth, canvasHeight, fontSize, sentinel);
}

bool StrategyCode39::generateFramed(const wchar_t* code, AbstractBarcodeElement** element,
                                    std::wstring& codeText, CharEncoder encode) {
    if (!beginGenerate(code, element)) {
        return false;
    }
    buildLinearSymbol(code, element, codeText, [code, encode](BarcodeRow* row) {
        encodeChar(L'*', row, false);
        for (const wchar_t* c = code; *c; ++c) {
            encode(*c, row, false);
        }
        encodeChar(L'*', row, true);
    });
    return true;
}

}  // namespace BarcodeVelko
