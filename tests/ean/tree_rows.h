#pragma once

#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/abstract_barcode_element.h"
#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_bar.h"
#include "BarcodeLib/barcode_space.h"
#include "BarcodeLib/barcode_text.h"

namespace EanTest {

// A leaf as a test sees it; widths in modules whatever the height.
struct Leaf {
    char kind;  // '1' bar, '0' space, 'T' text
    bool control;
    bool last;
    unsigned modules;
    unsigned height;
    std::string text;
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
    void add(char kind, const BarcodeVelko::AbstractBarcodeRect& rect, const std::wstring& text) {
        // The rect's own minWidth: a text not yet sized reports 0 through its override.
        leaves.push_back({kind, rect.isControl(), rect.isLastRect(),
                          rect.AbstractBarcodeRect::getMinWidth(), rect.getMinHeight(),
                          std::string(text.begin(), text.end())});
    }
};

inline std::vector<Leaf> leavesOf(BarcodeVelko::AbstractBarcodeElement* root) {
    LeafCollector collector;
    root->visit(&collector);
    return collector.leaves;
}

// The bars row as a pattern: every run that isn't a guard bar of the text row.
inline std::string barsOf(const std::vector<Leaf>& leaves) {
    std::string pattern;
    for (const Leaf& leaf : leaves) {
        if (leaf.kind != 'T' && !leaf.control) {
            pattern.append(leaf.modules, leaf.kind);
        }
    }
    return pattern;
}

// The text row as "T<width>:<text>" and guard patterns, separated by '|'.
inline std::string textRowOf(const std::vector<Leaf>& leaves) {
    std::string row;
    bool inGuard = false;
    for (const Leaf& leaf : leaves) {
        const bool guard = leaf.kind != 'T';
        if (guard && !leaf.control) {
            continue;
        }
        if (!row.empty() && !(guard && inGuard)) {
            row += '|';
        }
        row += guard ? std::string(leaf.modules, leaf.kind)
                     : "T" + std::to_string(leaf.modules) + ":" + leaf.text;
        inGuard = guard;
    }
    return row;
}

}  // namespace EanTest
