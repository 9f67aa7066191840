#pragma once

#include <functional>
#include <initializer_list>
#include <string>

namespace BarcodeVelko {

class AbstractBarcodeComposite;
class AbstractBarcodeElement;
class BarcodeRow;

inline bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// Sets *element to a new column of one new row per filler, each filled in order. Throws
// Unexpected for a null element and clears *element first. Nodes are owned until they are
// placed; a std::exception on the way becomes Unexpected.
void buildColumn(AbstractBarcodeElement** element,
                 std::initializer_list<std::function<void(BarcodeRow*)>> fillRows);

// Appends a text of minWidth width and minHeight 0. A null row throws Unexpected.
void insertText(AbstractBarcodeComposite* row, unsigned width, const std::wstring& text,
                unsigned customData = 0);

// The common tree of a one-row symbology: a column of the bars row, which fillBars fills left
// to right, and a text row with one BarcodeText. textWidth is the text's minWidth in modules;
// 0 takes the bars row's minimum width. An empty codeText becomes raw. Throws Unexpected for a
// null element; the caller has already checked raw.
void buildLinearSymbol(const std::wstring& raw, AbstractBarcodeElement** element,
                       std::wstring& codeText, const std::function<void(BarcodeRow*)>& fillBars,
                       unsigned textWidth = 0);

}  // namespace BarcodeVelko
