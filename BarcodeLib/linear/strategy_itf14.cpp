#include "BarcodeLib/linear/strategy_itf14.h"

#include <string>

#include "BarcodeLib/linear/visitor_size_itf14.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

const size_t kDigits = 14;
const unsigned kWidth = 134;
const char kLeftFrame[] = "11110000000000";
const char kRightFrame[] = "00000000001111";

// A horizontal bearer: one control bar across the whole symbol.
void insertBearer(BarcodeRow* row) {
    encode_line(std::string(kWidth, '1').c_str(), row, true, 0, true);
}

}  // namespace

bool StrategyITF14::checkRaw(const wchar_t* code) {
    return countDigits(code) == kDigits && hasCheckDigit(code, kDigits);
}

bool StrategyITF14::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    if (countDigits(value) != kDigits - 1) {
        return false;
    }
    check.assign(1, checkDigit(value, kDigits - 1));
    return true;
}

bool StrategyITF14::generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign,
                             int, bool, int, int, int, int, std::wstring& codeText) {
    if (!beginGenerate(code, element, textAlign)) {
        return false;
    }
    buildColumn(element, {insertBearer,
                          [code](BarcodeRow* row) {
                              encode_line(kLeftFrame, row, false, 0, false);
                              insertSymbol(code, row, false);
                              encode_line(kRightFrame, row, false, 0, true);
                          },
                          insertBearer,
                          [&](BarcodeRow* row) {
                              if (codeText.empty()) {
                                  codeText = code;
                              }
                              insertText(row, kWidth, codeText);
                          }});
    return true;
}

const wchar_t* StrategyITF14::getDemoValue() {
    return L"1123456789012";
}

const wchar_t* StrategyITF14::getRawDemoValue() {
    return L"11234567890125";
}

unsigned StrategyITF14::getDefaultTextAlign() {
    return kTextFull;
}

AbstractBarcodeVisitor* StrategyITF14::sizeVisitor(AbstractBarcodeElement* root,
                                                   unsigned canvasWidth, unsigned canvasHeight,
                                                   unsigned fontSize, unsigned, unsigned,
                                                   unsigned) {
    return newSizeVisitor<VisitorSizeITF14>(root, canvasWidth, canvasHeight, fontSize);
}

}  // namespace BarcodeVelko
