#include "BarcodeLib/databar/strategy_gs1_databar_expanded_stacked.h"

#include <algorithm>
#include <vector>

#include "BarcodeLib/databar/gs1_databar_exp_stack_binary_string_maker.h"
#include "BarcodeLib/databar/gs1_databar_exp_stack_drawer.h"
#include "BarcodeLib/databar/gs1_databar_exp_stack_sizes_calculator.h"
#include "BarcodeLib/databar/gs1_databar_exp_stack_symbol_signs_maker.h"
#include "BarcodeLib/databar/visitor_size_gs1_databar_expanded_stacked.h"
#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/strategy_ean128.h"
#include "BarcodeLib/new_or_throw.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/strategy/text_layout.h"
#include "BarcodeLib/tree/barcode_column.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "BarcodeLib/tree/barcode_text.h"
#include "layer/foundation/utf8.h"

namespace BarcodeVelko {

namespace {

constexpr int kMaxFixedRows = 99;
constexpr unsigned kDataRowModules = 34;
constexpr unsigned kTextCharacterWidth = 7;

int ceilDiv(int a, int b) {
    return (a + b - 1) / b;
}

}  // namespace

bool StrategyGS1DatabarExpandedStacked::checkRaw(const wchar_t* code) {
    if (!code) {
        throw BarcodeException::Unexpected();
    }
    return true;
}

bool StrategyGS1DatabarExpandedStacked::calcCheckSymbol(const wchar_t* value, std::wstring&) {
    return checkRaw(value);
}

bool StrategyGS1DatabarExpandedStacked::generate(const wchar_t* code,
                                                 AbstractBarcodeElement** element, int, int, bool,
                                                 int first, int second, int, int param,
                                                 std::wstring& codeText) {
    if (!element || !code) {
        throw BarcodeException::Unexpected();
    }
    *element = nullptr;

    std::string bytes;
    std::wstring text;
    if (!PrepareStrings(code, bytes, text)) {
        return false;
    }
    std::string binary;
    if (!GS1DatabarExpStackBinaryStringMaker().BuildBinaryString(bytes, binary)) {
        return false;
    }
    const GS1DatabarExpStackSymbolSignsMaker signsMaker;
    std::vector<GS1DatabarExpStackSign> signs;
    GS1DatabarExpStackSign check;
    std::vector<int> elements;
    int n = 0;
    if (!signsMaker.MakeDataSymbolSigns(binary, signs, n) ||
        !signsMaker.MakeCheckSymbolSign(binary, n, signs, check)) {
        return false;
    }
    signsMaker.MakeBarcodeElements(signs, n, check, elements);

    int rows = 0;
    int method = param;
    if (param <= kMaxFixedRows) {
        rows = param;
        method = CALC_FIXED_ROW_COUNT;
    }
    int textRows = 0;
    int moduleSize = 0;
    if (!GS1DatabarExpStackSizesCalculator().CalcSizes(method, first, second, n, rows, textRows,
                                                       moduleSize) ||
        rows <= 0) {
        return false;
    }
    const GS1DatabarExpStackDrawStructure structure =
        GS1DatabarExpStackDrawer().BuildGS1DatabarExpStackDrawStructure(elements, n, rows);
    AbstractBarcodeElement* root = nullptr;
    DrawGS1DatabarExpStack(&root, structure, moduleSize);
    SmartPtr<AbstractBarcodeElement> owned(root);
    DrawText(root, text, codeText, textRows);
    *element = owned.release();
    return true;
}

const wchar_t* StrategyGS1DatabarExpandedStacked::getDemoValue() {
    return L"(10)12A";
}

unsigned StrategyGS1DatabarExpandedStacked::getDefaultTextAlign() {
    return kTextFull;
}

AbstractBarcodeVisitor* StrategyGS1DatabarExpandedStacked::sizeVisitor(
    AbstractBarcodeElement* root, unsigned canvasWidth, unsigned canvasHeight, unsigned fontSize,
    unsigned, unsigned aspectX, unsigned aspectY) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    return newOrThrow<VisitorSizeGS1DatabarExpandedStacked>(canvasWidth, canvasHeight, aspectX,
                                                            aspectY, fontSize);
}

bool StrategyGS1DatabarExpandedStacked::PrepareStrings(const wchar_t* code, std::string& bytes,
                                                       std::wstring& text) {
    std::wstring translated;
    if (!StrategyEAN128().translateRaw(code, translated, text) || translated.size() < 2) {
        return false;
    }
    // The symbol's data opens with FNC1 of itself.
    if (translated.front() == StrategyEAN128::kFNC1) {
        translated.erase(0, 1);
    }
    bytes = wstr2str(translated);
    return true;
}

void StrategyGS1DatabarExpandedStacked::DrawGS1DatabarExpStack(
    AbstractBarcodeElement** element, const GS1DatabarExpStackDrawStructure& structure,
    int moduleSize) {
    if (!element) {
        throw BarcodeException::Unexpected();
    }
    const unsigned side = static_cast<unsigned>(moduleSize);
    SmartPtr<BarcodeColumn> column(newOrThrow<BarcodeColumn>());
    std::vector<LeafRun> modules;
    for (int y = 0; y < structure.GetRowCount(); ++y) {
        SmartPtr<BarcodeRow> row(newOrThrow<BarcodeRow>());
        modules.clear();
        for (int x = 0; x < structure.GetColumnCount(); ++x) {
            const GS1DatabarExpStackDrawModule& module = structure.GetModule(y, x);
            if (module.kind == GS1DatabarExpStackDrawStructure::kNothing) {
                continue;
            }
            const unsigned height = module.kind == GS1DatabarExpStackDrawStructure::kBarcodeModule
                                        ? kDataRowModules * side
                                        : side;
            modules.push_back({module.isBar, side, height, false});
        }
        encode_runs(modules.data(), modules.size(), row.get());
        column->add(row.get());
        row.release();
    }
    *element = column.release();
}

void StrategyGS1DatabarExpandedStacked::DrawText(AbstractBarcodeElement* root,
                                                 const std::wstring& text, std::wstring& codeText,
                                                 int textRows) {
    if (!root) {
        throw BarcodeException::Unexpected();
    }
    if (codeText.empty()) {
        codeText = text;
    }
    for (const std::wstring& line : SplitText(text, textRows)) {
        if (line.empty()) {
            break;
        }
        SmartPtr<BarcodeRow> row(newOrThrow<BarcodeRow>());
        SmartPtr<BarcodeText> label(newOrThrow<BarcodeText>(
            kTextCharacterWidth * static_cast<unsigned>(line.size()), 0u, line.c_str()));
        row->add(label.get());
        label.release();
        root->add(row.get());
        row.release();
    }
}

std::vector<std::wstring> StrategyGS1DatabarExpandedStacked::SplitText(const std::wstring& text,
                                                                       int textRows) {
    // Each identifier with its data is a token.
    std::vector<std::wstring> tokens;
    size_t start = 0;
    while (start <= text.size()) {
        const size_t bracket = std::min(text.find(L'(', start), text.size());
        const std::wstring token = text.substr(start, bracket - start);
        if (!token.empty()) {
            tokens.push_back(token.size() < text.size() ? L"(" + token : token);
        }
        start = bracket + 1;
    }
    const int lines = std::max(textRows, 1);
    if (static_cast<int>(tokens.size()) < lines) {
        tokens.clear();
        const size_t piece = static_cast<size_t>(ceilDiv(static_cast<int>(text.size()), lines));
        for (size_t at = 0; piece > 0 && at < text.size(); at += piece) {
            tokens.push_back(text.substr(at, piece));
        }
    }
    std::vector<std::wstring> result;
    size_t next = 0;
    for (int line = 0; line < lines; ++line) {
        const int take = ceilDiv(static_cast<int>(tokens.size() - next), lines - line);
        std::wstring joined;
        for (int t = 0; t < take; ++t) {
            joined += tokens[next++];
        }
        result.push_back(joined);
    }
    return result;
}

}  // namespace BarcodeVelko
