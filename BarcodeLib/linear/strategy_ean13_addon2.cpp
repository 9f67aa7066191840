#include "BarcodeLib/linear/strategy_ean13_addon2.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/visitor_size_ean13_addon2.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/linear_symbol.h"
#include "BarcodeLib/tree/abstract_barcode_composite.h"
#include "BarcodeLib/tree/barcode_row.h"

namespace BarcodeVelko {

namespace {

const size_t kMainLength = 13;
const size_t kMainHead = 12;
const char kAddOnStart[] = "1011";
const char kAddOnSeparator[] = "01";
// The rows of the tree, as the size visitor tells them apart.
const unsigned kUpperRow = 1;
const unsigned kLowerRow = 2;

unsigned addOnModules(size_t digits) {
    return static_cast<unsigned>(9 * digits + 2);
}

}  // namespace

bool StrategyEAN13AddOn2::checkRaw(const wchar_t* code) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    const std::wstring raw(code);
    if (raw.size() != kMainLength + getAddOnLength()) {
        return false;
    }
    for (size_t i = kMainLength; i < raw.size(); ++i) {
        if (!isDigit(raw[i])) {
            return false;
        }
    }
    return StrategyEAN13::checkRaw(raw.substr(0, kMainLength).c_str());
}

bool StrategyEAN13AddOn2::calcCheckSymbol(const wchar_t* value, std::wstring& check) {
    if (!value) {
        throw BarcodeException::Unexpected();
    }
    std::wstring mainCheck;
    const bool valid =
        StrategyEAN13::calcCheckSymbol(std::wstring(value).substr(0, kMainHead).c_str(), mainCheck);
    check.clear();
    return valid;
}

bool StrategyEAN13AddOn2::generate(const wchar_t* code, AbstractBarcodeElement** element,
                                   int textAlign, int, bool showCS, int, int, int, int,
                                   std::wstring& codeText) {
    if (!beginGenerate(code, element, textAlign)) {
        return false;
    }
    const std::wstring raw(code);
    settleCodeText(codeText, raw);
    const std::wstring addOn = raw.substr(kMainLength);
    const bool margins = hasPreSentinels(textAlign);
    buildColumn(element, {[&](BarcodeRow* row) {
                              insertBars13(raw, row, margins, true, kUpperRow);
                              insertText(row, addOnModules(addOn.size()),
                                         codeText.substr(kMainLength), kUpperRow);
                          },
                          [&](BarcodeRow* row) {
                              insertBars13(raw, row, margins, true, kLowerRow);
                              insertAddOn(addOn, row, false, kLowerRow, isAddOnEndFlagged());
                          },
                          [&](BarcodeRow* row) {
                              insertTextRow13(codeText, row, textAlign, showCS);
                              // EAN2 has its closing digit where the others keep the margin.
                              if (textAlign != kTextLayoutEAN2) {
                                  insertPreSentinel(row, true);
                              }
                              insertAddOn(addOn, row, true, 0, true);
                          }});
    return true;
}

const wchar_t* StrategyEAN13AddOn2::getDemoValue() {
    return L"123456789012834";
}

const wchar_t* StrategyEAN13AddOn2::getRawDemoValue() {
    return getDemoValue();
}

AbstractBarcodeVisitor* StrategyEAN13AddOn2::sizeVisitor(AbstractBarcodeElement* root,
                                                         unsigned canvasWidth,
                                                         unsigned canvasHeight, unsigned fontSize,
                                                         unsigned sentinel, unsigned, unsigned) {
    return newSizeVisitor<VisitorSizeEAN13AddOn2>(root, canvasWidth, canvasHeight, fontSize,
                                                  sentinel);
}

size_t StrategyEAN13AddOn2::getAddOnLength() {
    return 2;
}

// The value of the two digits mod 4: bit 1 for the first digit, bit 0 for the second.
bool StrategyEAN13AddOn2::isEvenDigit(const std::wstring& addOn, size_t place) {
    const unsigned value =
        10 * static_cast<unsigned>(addOn.at(0) - L'0') + static_cast<unsigned>(addOn.at(1) - L'0');
    return (value >> (1 - place)) & 1;
}

bool StrategyEAN13AddOn2::isAddOnEndFlagged() {
    return false;
}

void StrategyEAN13AddOn2::insertAddOn(const std::wstring& addOn, AbstractBarcodeComposite* row,
                                      bool control, unsigned customData, bool lastDigit) {
    encode_line(kAddOnStart, row, control, customData, false);
    for (size_t place = 0; place < addOn.size(); ++place) {
        if (!isDigit(addOn[place])) {
            throw BarcodeException::Unexpected();
        }
        if (place > 0) {
            encode_line(kAddOnSeparator, row, control, customData, false);
        }
        const char(*set)[8] =
            isEvenDigit(addOn, place) ? g_aszEAN8TableLeftEven : g_aszEAN8TableLeftOdd;
        encode_line(set[addOn[place] - L'0'], row, control, customData,
                    lastDigit && place + 1 == addOn.size());
    }
}

}  // namespace BarcodeVelko
