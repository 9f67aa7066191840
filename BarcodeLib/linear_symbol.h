#pragma once

#include <functional>
#include <string>

namespace BarcodeVelko {

class AbstractBarcodeElement;
class BarcodeRow;

// The common tree of a one-row symbology: a column of the bars row, which fillBars fills left
// to right, and a text row with one BarcodeText. textWidth is the text's minWidth in modules;
// 0 takes the bars row's minimum width. An empty codeText becomes raw. Throws Unexpected for a
// null element; the caller has already checked raw.
void buildLinearSymbol(const std::wstring& raw, AbstractBarcodeElement** element,
                       std::wstring& codeText, const std::function<void(BarcodeRow*)>& fillBars,
                       unsigned textWidth = 0);

}  // namespace BarcodeVelko
