#include "BarcodeLib/linear/strategy_code39_ext.h"

#include <string>

#include "BarcodeLib/linear/full_ascii_table.h"

namespace BarcodeVelko {

bool StrategyCode39Ext::checkRaw(const wchar_t* code) {
    return isFullAscii(code);
}

bool StrategyCode39Ext::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int,
                                 bool, int, int, int, int, std::wstring& codeText) {
    return generateFramed(code, element, codeText, encodeChar);
}

const wchar_t* StrategyCode39Ext::getDemoValue() {
    return L"Code39";
}

void StrategyCode39Ext::encodeChar(wchar_t c, AbstractBarcodeComposite* row, bool last) {
    const char* const pair = fullAsciiPair(c);
    if (!pair[1]) {
        StrategyCode39::encodeChar(static_cast<wchar_t>(pair[0]), row, last);
        return;
    }
    StrategyCode39::encodeChar(static_cast<wchar_t>(pair[0]), row, false);
    StrategyCode39::encodeChar(static_cast<wchar_t>(pair[1]), row, last);
}

}  // namespace BarcodeVelko
