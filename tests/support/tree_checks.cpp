#include "tests/support/tree_checks.h"

#include <gtest/gtest.h>

#include <memory>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/barcode_text.h"

namespace VelkoTest {

namespace {

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
        // The rect's own minWidth: a text without height reports 0 through its override.
        leaves.push_back({kind, rect.AbstractBarcodeRect::getMinWidth(), rect.getScaleX(),
                          rect.getMinHeight(), rect.isControl(), rect.isLastRect(),
                          rect.getCustomData(), std::string(text.begin(), text.end())});
    }
};

}  // namespace

std::unique_ptr<BarcodeVelko::AbstractBarcodeElement> build(
    BarcodeVelko::AbstractBarcodeStrategy& strategy, const std::wstring& raw, int textAlign,
    std::wstring* codeText, bool showCS) {
    std::wstring text = codeText ? *codeText : std::wstring();
    BarcodeVelko::AbstractBarcodeElement* root = nullptr;
    EXPECT_TRUE(strategy.generate(raw.c_str(), &root, textAlign, 0, showCS, 150, 100, 1, 0, text))
        << narrow(raw);
    if (codeText) {
        *codeText = text;
    }
    return std::unique_ptr<BarcodeVelko::AbstractBarcodeElement>(root);
}

bool refuses(BarcodeVelko::AbstractBarcodeStrategy& strategy, const std::wstring& raw,
             int textAlign) {
    BarcodeVelko::BarcodeRow stale;
    BarcodeVelko::AbstractBarcodeElement* root = &stale;
    std::wstring codeText = L"kept";
    if (strategy.generate(raw.c_str(), &root, textAlign, 0, true, 150, 100, 1, 0, codeText)) {
        delete root;
        return false;
    }
    return root == nullptr && codeText == L"kept";
}

void sizeTree(BarcodeVelko::AbstractBarcodeStrategy& strategy,
              BarcodeVelko::AbstractBarcodeElement* root, unsigned width, unsigned height,
              unsigned fontSize, unsigned sentinel) {
    std::unique_ptr<BarcodeVelko::AbstractBarcodeVisitor> visitor(
        strategy.sizeVisitor(root, width, height, fontSize, sentinel, 1, 4));
    root->visit(visitor.get());
}

std::vector<Leaf> leavesOf(BarcodeVelko::AbstractBarcodeElement* root) {
    LeafCollector collector;
    root->visit(&collector);
    return collector.leaves;
}

std::string modules(const std::vector<Leaf>& leaves, const std::function<bool(const Leaf&)>& keep) {
    std::string row;
    for (const Leaf& leaf : leaves) {
        if (leaf.kind != 'T' && keep(leaf)) {
            row.append(leaf.modules, leaf.kind);
        }
    }
    return row;
}

std::string textsOf(const std::vector<Leaf>& leaves) {
    std::string texts;
    for (const Leaf& leaf : leaves) {
        if (leaf.kind == 'T') {
            texts += (texts.empty() ? "" : "|") + leaf.text;
        }
    }
    return texts;
}

std::string textRowOf(const std::vector<Leaf>& leaves) {
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

unsigned thrownCode(const std::function<void()>& action) {
    try {
        action();
    } catch (const BarcodeException::AbstractBarcodeException& e) {
        return e.getCode();
    }
    return 0;
}

std::string narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

}  // namespace VelkoTest
