#include "BarcodeLib/linear/strategy_codabar.h"

#include <cwchar>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/visitor_size_codabar.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

// The characters in the order of the table.
const wchar_t kAlphabet[] = L"0123456789-$:/.+ABCD";
const size_t kFirstStartStop = 16;

// The row of c in the table, or -1 if c isn't a Codabar character.
int indexOf(wchar_t c) {
    const wchar_t* const found = c ? std::wcschr(kAlphabet, c) : nullptr;
    return found ? static_cast<int>(found - kAlphabet) : -1;
}

bool isStartStop(wchar_t c) {
    return indexOf(c) >= static_cast<int>(kFirstStartStop);
}

bool isData(wchar_t c) {
    const int index = indexOf(c);
    return index >= 0 && index < static_cast<int>(kFirstStartStop);
}

}  // namespace

const char StrategyCodaBar::g_aszTable[20][13] = {
    "101010011",  "101011001",  "101001011",  "110010101",  "101101001",
    "110101001",  "100101011",  "100101101",  "100110101",  "110100101",
    "101001101",  "101100101",  "1101011011", "1101101011", "1101101101",
    "1011011011", "1011001001", "1001001011", "1010010011", "1010011001",
};

bool StrategyCodaBar::checkRaw(const wchar_t* code) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    const size_t length = std::wcslen(code);
    if (length < 2 || !isStartStop(code[0]) || !isStartStop(code[length - 1])) {
        return false;
    }
    for (size_t i = 1; i + 1 < length; ++i) {
        if (!isData(code[i])) {
            return false;
        }
    }
    return true;
}

bool StrategyCodaBar::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    return calcNoCheckSymbol(value, check);
}

bool StrategyCodaBar::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int,
                               bool, int, int, int, int, std::wstring& codeText) {
    if (!beginGenerate(code, element)) {
        return false;
    }
    buildLinearSymbol(code, element, codeText, [code](BarcodeRow* row) {
        encode_line(g_aszTable[indexOf(code[0])], row, false, 0, false);
        for (const wchar_t* c = code + 1; *c; ++c) {
            encode_line("0", row, false, 0, false);
            encode_line(g_aszTable[indexOf(*c)], row, false, 0, c[1] == 0);
        }
    });
    return true;
}

const wchar_t* StrategyCodaBar::getDemoValue() {
    return L"A12345B";
}

unsigned StrategyCodaBar::getDefaultTextAlign() {
    return kTextCentre;
}

AbstractBarcodeVisitor* StrategyCodaBar::sizeVisitor(AbstractBarcodeElement* root,
                                                     unsigned canvasWidth, unsigned canvasHeight,
                                                     unsigned fontSize, unsigned, unsigned,
                                                     unsigned) {
    return newSizeVisitor<VisitorSizeCodaBar>(root, canvasWidth, canvasHeight, fontSize);
}

}  // namespace BarcodeVelko
