#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/abstract_barcode_element.h"
#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_bar.h"
#include "BarcodeLib/barcode_space.h"
#include "BarcodeLib/barcode_text.h"

namespace LinearTest {

// A leaf of a tree as the tests look at it, in the order of drawing.
struct Leaf {
    char kind;  // '1' bar, '0' space, 'T' text
    unsigned modules;
    unsigned scaleX;
    unsigned height;
    bool control;
    bool last;
    unsigned customData;
    std::wstring text;
};

class LeafCollector : public BarcodeVelko::AbstractBarcodeVisitor {
public:
    std::vector<Leaf> leaves;

    void visit(BarcodeVelko::BarcodeSpace* space) override { add('0', *space, L""); }
    void visit(BarcodeVelko::BarcodeBar* bar) override { add('1', *bar, L""); }
    void visit(BarcodeVelko::BarcodeText* text) override {
        std::unique_ptr<wchar_t[]> copy(text->getText());
        add('T', *text, copy.get());
    }

private:
    void add(char kind, const BarcodeVelko::AbstractBarcodeRect& rect, const wchar_t* text) {
        // The rect's own minWidth: a text without height reports 0 through its override.
        leaves.push_back({kind, rect.AbstractBarcodeRect::getMinWidth(), rect.getScaleX(),
                          rect.getMinHeight(), rect.isControl(), rect.isLastRect(),
                          rect.getCustomData(), text});
    }
};

inline std::vector<Leaf> leavesOf(BarcodeVelko::AbstractBarcodeElement* root) {
    LeafCollector collector;
    root->visit(&collector);
    return collector.leaves;
}

// The runs that keep selects as a module string, '1' dark and '0' light; by default all runs
// that aren't control runs, which is the bars row of a one-row symbol.
inline std::string modules(
    const std::vector<Leaf>& leaves,
    const std::function<bool(const Leaf&)>& keep = [](const Leaf& l) { return !l.control; }) {
    std::string row;
    for (const Leaf& leaf : leaves) {
        if (leaf.kind != 'T' && keep(leaf)) {
            row.append(leaf.modules, leaf.kind);
        }
    }
    return row;
}

// The texts in drawing order, separated by '|'.
inline std::wstring textsOf(const std::vector<Leaf>& leaves) {
    std::wstring texts;
    for (const Leaf& leaf : leaves) {
        if (leaf.kind == 'T') {
            texts += (texts.empty() ? L"" : L"|") + leaf.text;
        }
    }
    return texts;
}

}  // namespace LinearTest
