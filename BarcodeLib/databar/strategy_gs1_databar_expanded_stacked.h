#pragma once

#include <string>
#include <vector>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

class GS1DatabarExpStackDrawStructure;

namespace BarcodeVelko {

// GS1 DataBar Expanded Stacked: a GS1 element string, bracketed or raw, in rows of DataBar
// Expanded segments. Unlike the linear symbologies, generate chooses the rows and the module's
// pixel size from the picture itself; the visitor only pins the scales. Every checkRaw passes,
// so that generate alone judges a value.
class StrategyGS1DatabarExpandedStacked : public AbstractBarcodeStrategy {
public:
    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    // first and second: the picture's width and height; param: the rows, 1 to 99, or 100 for
    // as many as give the largest module. textAlign, textPos, showCS and ecl aren't read.
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    // bytes: the element string in raw form, UTF-8, without the leading FNC1 and with the byte
    // 29 between elements; text: the value without markers, as it is shown. False when less
    // than two characters come out of the value.
    static bool PrepareStrings(const wchar_t* code, std::string& bytes, std::wstring& text);
    // A column of one row per grid row, a leaf per module of moduleSize pixels; data modules are
    // 34 modules high.
    static void DrawGS1DatabarExpStack(AbstractBarcodeElement** element,
                                       const GS1DatabarExpStackDrawStructure& structure,
                                       int moduleSize);
    // The human-readable lines under the symbol: whole elements per line where there are enough
    // of them, else the text cut in equal pieces. codeText becomes text if it is empty.
    static void DrawText(AbstractBarcodeElement* root, const std::wstring& text,
                         std::wstring& codeText, int textRows);
    // The lines of DrawText.
    static std::vector<std::wstring> SplitText(const std::wstring& text, int textRows);
};

}  // namespace BarcodeVelko
