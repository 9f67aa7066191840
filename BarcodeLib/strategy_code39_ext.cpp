#include "BarcodeLib/strategy_code39_ext.h"

#include <cstdint>
#include <string>

#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_row.h"
#include "BarcodeLib/full_ascii_table.h"
#include "BarcodeLib/linear_symbol.h"

namespace BarcodeVelko {

bool StrategyCode39Ext::checkRaw(const wchar_t* code) {
    return isFullAscii(code);
}

bool StrategyCode39Ext::generate(const wchar_t* code, AbstractBarcodeElement** element, int, int,
                                 bool, int, int, int, int, std::wstring& codeText) {
    if (!element) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;
    if (!checkRaw(code)) {
        return false;
    }
    buildLinearSymbol(code, element, codeText, [code](BarcodeRow* row) {
        StrategyCode39::encodeChar(L'*', row, false);
        for (const wchar_t* c = code; *c; ++c) {
            encodeChar(*c, row, false);
        }
        StrategyCode39::encodeChar(L'*', row, true);
    });
    return true;
}

const wchar_t* StrategyCode39Ext::getDemoValue() {
    return L"Code39";
}

void StrategyCode39Ext::encodeChar(wchar_t c, AbstractBarcodeComposite* row, bool last) {
    if (static_cast<std::uint32_t>(c) > 127u) {
        throw BarcodeException::Unexpected();
    }
    const char* const pair = g_aszFullAsciiTable[c];
    if (!pair[1]) {
        StrategyCode39::encodeChar(static_cast<wchar_t>(pair[0]), row, last);
        return;
    }
    StrategyCode39::encodeChar(static_cast<wchar_t>(pair[0]), row, false);
    StrategyCode39::encodeChar(static_cast<wchar_t>(pair[1]), row, last);
}

}  // namespace BarcodeVelko
