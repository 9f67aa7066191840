#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "BarcodeLib/barcode_bar.h"
#include "BarcodeLib/barcode_canvas.h"
#include "BarcodeLib/barcode_column.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_row.h"
#include "BarcodeLib/barcode_space.h"
#include "BarcodeLib/barcode_text.h"
#include "BarcodeLib/encode_line.h"
#include "BarcodeLib/visitor_size_code_x.h"
#include "tests/spine/recording_canvas.h"

using namespace BarcodeVelko;

namespace {

// Each leaf as kind and width, then "c" if control, its custom data if any, "!" if last.
class LeafLister : public AbstractBarcodeVisitor {
public:
    std::vector<std::string> leaves;
    void visit(BarcodeSpace* space) override { add("s", space); }
    void visit(BarcodeBar* bar) override { add("b", bar); }
    void visit(BarcodeText* text) override { add("t", text); }

private:
    void add(std::string leaf, AbstractBarcodeRect* rect) {
        leaf += std::to_string(rect->getMinWidth()) + (rect->isControl() ? "c" : "");
        leaf += rect->getCustomData() ? std::to_string(rect->getCustomData()) : "";
        leaves.push_back(leaf + (rect->isLastRect() ? "!" : ""));
    }
};

class ThrowingVisitor : public AbstractBarcodeVisitor {
public:
    void visit(BarcodeSpace*) override { throw std::runtime_error("space"); }
    void visit(BarcodeBar*) override { throw BarcodeException::OutOfMemory(); }
    void visit(BarcodeText*) override {}
};

unsigned thrownCode(const std::function<void()>& action) {
    try {
        action();
    } catch (const BarcodeException::AbstractBarcodeException& e) {
        return e.getCode();
    }
    return 0;
}

// A column of a bars row of `pattern` and a text row of `textWidth` modules and height 0.
void buildSymbol(BarcodeColumn& column, const char* pattern, unsigned textWidth) {
    auto* bars = new BarcodeRow;
    column.add(bars);
    encode_line(pattern, bars, false, 0, true);
    auto* texts = new BarcodeRow;
    column.add(texts);
    texts->add(new BarcodeText(textWidth, 0, L"x"));
}

}  // namespace

TEST(EncodeLine, CutsRunsAndFlagsOnlyTheLastRunOfTheLastCall) {
    struct Case {
        std::vector<std::pair<const char*, bool>> calls;
        bool control;
        unsigned customData;
        std::vector<std::string> leaves;
    };
    const Case cases[] = {
        {{{"0", false}}, false, 0, {"s1"}},
        {{{"0110", true}}, false, 0, {"s1", "b2", "s1!"}},
        {{{"0110", false}}, true, 7, {"s1c7", "b2c7", "s1c7"}},
        {{{"", true}}, false, 0, {}},
        {{{"1110001", false}, {"1", true}}, false, 0, {"b3", "s3", "b1", "b1!"}},
        {{{"11", true}, {"0", false}}, false, 0, {"b2!", "s1"}},
    };
    for (const Case& c : cases) {
        BarcodeRow row;
        for (const auto& [pattern, last] : c.calls) {
            encode_line(pattern, &row, c.control, c.customData, last);
        }
        LeafLister lister;
        row.visit(&lister);
        EXPECT_EQ(lister.leaves, c.leaves) << c.calls.front().first;
        EXPECT_EQ(row.getMinHeight(), c.leaves.empty() ? 0u : 1u);
    }
}

TEST(Tree, RefusesBrokenCallsWithTheRightException) {
    const unsigned unexpected = BarcodeException::kUnexpectedCode;
    const unsigned oom = BarcodeException::kOutOfMemoryCode;
    BarcodeRow row;
    BarcodeBar bar(1, 1, false, false);
    BarcodeText text(3, 0, L"x");
    const std::pair<std::function<void()>, unsigned> cases[] = {
        {[&] { row.add(nullptr); }, unexpected},
        {[&] { row.add(&row); }, unexpected},
        {[&] { bar.add(&row); }, unexpected},
        {[&] { row.visit(nullptr); }, unexpected},
        {[&] { bar.visit(nullptr); }, unexpected},
        {[&] { text.draw(nullptr); }, unexpected},
        {[&] { row.draw(nullptr); }, unexpected},
        {[&] { BarcodeSpace(0x80000000u, 1, false, false); }, unexpected},
        {[&] { BarcodeBar(1, 0xFFFFFFFFu, false, false); }, unexpected},
        {[&] { bar.setMinWidth(0x80000000u); }, unexpected},
        {[&] { bar.setScaleY(0x80000000u); }, unexpected},
        {[&] { bar.setScaleX(0x7FFFFFFFu); }, 0},
        {[&] { BarcodeText(1, 1, nullptr); }, unexpected},
        {[&] { BarcodeText(1, 1, L""); }, oom},
        {[&] { BarcodeCanvas canvas(nullptr); }, unexpected},
        {[&] { encode_line(nullptr, &row, false, 0, false); }, unexpected},
        {[&] { encode_line("1", nullptr, false, 0, false); }, unexpected},
        {[&] { encode_line("0120", &row, false, 0, false); }, unexpected},
    };
    for (size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(thrownCode(cases[i].first), cases[i].second) << "case " << i;
    }
    EXPECT_EQ(row.getMinWidth(), 0u);  // the bad pattern added nothing

    // A std::exception from a visitor comes out as Unexpected, our own exceptions unchanged.
    ThrowingVisitor throwing;
    encode_line("1", &row, false, 0, false);
    EXPECT_EQ(thrownCode([&] { row.visit(&throwing); }), oom);
    BarcodeColumn column;
    buildSymbol(column, "0", 1);
    EXPECT_EQ(thrownCode([&] { column.visit(&throwing); }), unexpected);
}

TEST(Tree, SizeVisitorGivesWholeModulesAndPixelHeights) {
    struct Case {
        unsigned canvasWidth, canvasHeight, fontSize;
        unsigned moduleWidth, barHeight, textWidth;
    };
    // 10 modules of bars under a text of 12, which doesn't count before it has a height.
    const Case cases[] = {
        {35, 100, 10, 3, 90, 36},  // the remainder of the width is not spread
        {5, 100, 10, 1, 90, 12},   // narrower than the symbol: still one pixel a module
        {40, 100, 0, 4, 100, 0},   // invisible text: no text, the bars take the height
        {40, 8, 10, 4, 0, 48},     // text taller than the canvas
    };
    for (const Case& c : cases) {
        BarcodeColumn column;
        buildSymbol(column, "1101000111", 12);
        VisitorSizeCodeX visitor(column.getMinWidth(), column.getMinHeight(), c.canvasWidth,
                                 c.canvasHeight, c.fontSize, 30);
        column.visit(&visitor);
        auto* imp = new SpineTest::RecordingCanvasImp;
        BarcodeCanvas canvas(imp);
        column.draw(&canvas);
        ASSERT_EQ(imp->calls.size(), 6u);
        for (const auto& call : imp->calls) {
            const bool text = call.kind == 't';
            EXPECT_EQ(call.height, text ? c.fontSize : c.barHeight) << c.canvasWidth;
            EXPECT_EQ(call.width % c.moduleWidth, 0u) << c.canvasWidth;
        }
        EXPECT_EQ(imp->calls.back().width, c.textWidth) << c.canvasWidth;
        EXPECT_EQ(imp->calls.front().width, 2 * c.moduleWidth) << c.canvasWidth;
        EXPECT_EQ(column.getWidth(), std::max(10 * c.moduleWidth, c.textWidth));
    }
}

TEST(Tree, DrawPlacesEachLeafAndLeavesThePenWhereItWas) {
    // Two rows in a column, the second holding a nested column and a text.
    BarcodeColumn root;
    auto* top = new BarcodeRow;
    root.add(top);
    encode_line("1100111", top, false, 0, true);
    auto* bottom = new BarcodeRow;
    root.add(bottom);
    auto* nested = new BarcodeColumn;
    bottom->add(nested);
    encode_line("1", nested, false, 0, false);
    encode_line("0", nested, false, 0, false);
    bottom->add(new BarcodeText(4, 2, L"ab"));

    auto* imp = new SpineTest::RecordingCanvasImp;
    BarcodeCanvas canvas(imp);
    AbstractBarcodeElement* const composites[] = {&root, top, bottom, nested};
    for (AbstractBarcodeElement* composite : composites) {
        imp->penX = 5;
        imp->penY = 7;
        composite->draw(&canvas);
        EXPECT_EQ(imp->penX, 5u);
        EXPECT_EQ(imp->penY, 7u);
    }

    const SpineTest::RecordingCanvasImp::Call expected[] = {
        {'b', 5, 7, 2, 1, false, L""}, {'s', 7, 7, 2, 1, false, L""},
        {'b', 9, 7, 3, 1, true, L""},  {'b', 5, 8, 1, 1, false, L""},
        {'s', 5, 9, 1, 1, false, L""}, {'t', 6, 8, 4, 2, false, L"ab"},
    };
    ASSERT_GE(imp->calls.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(imp->calls[i], expected[i]) << i;
    }
}
