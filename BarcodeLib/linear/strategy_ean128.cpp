#include "BarcodeLib/linear/strategy_ean128.h"

#include <algorithm>
#include <exception>

#include "BarcodeLib/errors/barcode_exception.h"
#include "layer/GS1/gs1.h"
#include "layer/foundation/string_helpers.h"
#include "layer/foundation/utf8.h"

namespace BarcodeVelko {

namespace {

constexpr unsigned kFNC1SymbolValue = 102;

}  // namespace

bool StrategyEAN128::translateRaw(const wchar_t* value, std::wstring& code, std::wstring& text) {
    if (!value) {
        throw BarcodeException::Unexpected();
    }
    code.clear();
    text.clear();
    // A refused element string comes back as it was and is encoded as plain Code 128.
    const std::string raw = text2gs1raw(wstr2str(value), nullptr);
    if (raw.empty()) {
        return false;
    }
    code = replace(str2wstr(raw), kGS1StartMarkerW, std::wstring(1, kFNC1Value));
    code = replace(code, kGS1SeparatorMarkerW, std::wstring(1, kGS));
    std::replace(code.begin(), code.end(), kFNC1Value, kFNC1);
    text = replace(replace(value, kGS1StartMarkerW, L""), kGS1SeparatorMarkerW, L"");
    return true;
}

bool StrategyEAN128::checkRaw(const wchar_t* code) {
    std::wstring translated;
    std::wstring text;
    return translateRaw(code, translated, text);
}

bool StrategyEAN128::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int, bool,
                              int, int, int, int, std::wstring& codeText) {
    if (!element) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    std::wstring translated;
    std::wstring text;
    if (!translateRaw(code, translated, text)) {
        return false;
    }
    try {
        buildSymbol(text, encodeSymbolValues(translated), element, codeText);
    } catch (const std::exception&) {
        throw BarcodeException::Unexpected();
    }
    return true;
}

const wchar_t* StrategyEAN128::getDemoValue() {
    return L"(11)040509(20)12";
}

unsigned StrategyEAN128::encodeAs(wchar_t c, unsigned current) {
    return c == kFNC1 ? current : StrategyCode128::encodeAs(c, current);
}

unsigned StrategyEAN128::encodeAs(wchar_t c, wchar_t next, unsigned current) {
    // Never set C for FNC1 itself: before a digit pair it is written in set A, then C follows.
    if (c == kFNC1) {
        return encodeAs(next, current);
    }
    if (next == kFNC1) {
        return encodeAs(c, current);
    }
    return StrategyCode128::encodeAs(c, next, current);
}

std::vector<unsigned> StrategyEAN128::symbolValues(const wchar_t* code) {
    std::wstring translated;
    std::wstring text;
    if (!translateRaw(code, translated, text)) {
        return std::vector<unsigned>();
    }
    return encodeSymbolValues(translated);
}

unsigned StrategyEAN128::characterValue(wchar_t c) {
    return c == kFNC1 ? kFNC1SymbolValue : StrategyCode128::characterValue(c);
}

}  // namespace BarcodeVelko
