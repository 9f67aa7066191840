#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/linear/strategy_code39.h"
#include "BarcodeLib/strategy/encode_line.h"
#include "BarcodeLib/tree/abstract_barcode_visitor.h"
#include "BarcodeLib/tree/barcode_bar.h"
#include "BarcodeLib/tree/barcode_canvas.h"
#include "BarcodeLib/tree/barcode_canvas_memory_impl.h"
#include "BarcodeLib/tree/barcode_column.h"
#include "BarcodeLib/tree/barcode_row.h"
#include "BarcodeLib/tree/barcode_space.h"
#include "BarcodeLib/tree/barcode_text.h"
#include "tests/support/tree_checks.h"

using namespace BarcodeVelko;
using VelkoTest::thrownCode;

namespace {

// Records what the tree asks of the bridge. Each drawing call moves the pen on by the box it was
// given, as a careless surface might, so that a composite relying on it is caught.
class RecordingCanvasImp : public BarcodeCanvasMemoryImpl {
public:
    struct Call {
        char kind;  // 'b' bar, 's' space, 't' text
        unsigned x, y, width, height;
        bool last;
        std::wstring text;
        bool operator==(const Call& o) const {
            return std::tie(kind, x, y, width, height, last, text) ==
                   std::tie(o.kind, o.x, o.y, o.width, o.height, o.last, o.text);
        }
    };

    std::vector<Call> calls;
    unsigned penX = 0;
    unsigned penY = 0;

    RecordingCanvasImp() : BarcodeCanvasMemoryImpl(1000, 1000, 0xFFFFFFFF) {}
    void getXYImp(unsigned* x, unsigned* y) override { *x = penX, *y = penY; }
    void setXYImp(unsigned x, unsigned y) override { penX = x, penY = y; }
    void drawSpaceImp(unsigned w, unsigned h, bool last) override { record('s', w, h, last, L""); }
    void drawBarImp(unsigned w, unsigned h, bool last) override { record('b', w, h, last, L""); }
    void drawTextImp(unsigned w, unsigned h, const wchar_t* text) override {
        record('t', w, h, false, text);
    }

private:
    void record(char kind, unsigned width, unsigned height, bool last, const wchar_t* text) {
        calls.push_back({kind, penX, penY, width, height, last, text});
        penX += width;
        penY += height;
    }
};

class ThrowingVisitor : public AbstractBarcodeVisitor {
public:
    void visit(BarcodeSpace*) override { throw std::runtime_error("space"); }
    void visit(BarcodeBar*) override { throw BarcodeException::OutOfMemory(); }
    void visit(BarcodeText*) override {}
};

}  // namespace

TEST(EncodeLine, CutsRunsAndFlagsOnlyTheLastRunOfTheLastCall) {
    struct Case {
        std::vector<std::pair<const char*, bool>> calls;
        bool control;
        unsigned customData;
        std::vector<std::string> leaves;  // kind and width, "c" control, custom data, "!" last
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
        std::vector<std::string> leaves;
        for (const VelkoTest::Leaf& leaf : VelkoTest::leavesOf(&row)) {
            leaves.push_back((leaf.kind == '1' ? "b" : "s") + std::to_string(leaf.modules) +
                             (leaf.control ? "c" : "") +
                             (leaf.customData ? std::to_string(leaf.customData) : "") +
                             (leaf.last ? "!" : ""));
        }
        EXPECT_EQ(leaves, c.leaves) << c.calls.front().first;
        EXPECT_EQ(row.getMinHeight(), c.leaves.empty() ? 0u : 1u);
    }
}

// Runs of many calls share blocks, and a leaf made alone between them starts a new one; every
// leaf is there once and the row frees them all (a leak checker sees the rest).
TEST(EncodeLine, RunsOfManyCallsAndLeavesMadeAloneLiveTogether) {
    constexpr unsigned kCalls = 40;
    constexpr unsigned kAloneEvery = 7;
    BarcodeRow row;
    unsigned leaves = 0;
    unsigned modules = 0;
    for (unsigned call = 0; call < kCalls; ++call) {
        encode_line("01100", &row, false, call, call + 1 == kCalls);
        leaves += 3;
        modules += 5;
        if (call % kAloneEvery == 0) {
            row.add(new BarcodeBar(2, 1, false, false));
            leaves += 1;
            modules += 2;
        }
    }
    const std::vector<VelkoTest::Leaf> made = VelkoTest::leavesOf(&row);
    EXPECT_EQ(made.size(), leaves);
    EXPECT_EQ(row.getMinWidth(), modules);
    EXPECT_EQ(made.back().customData, kCalls - 1);
    EXPECT_TRUE(made.back().last);
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
    auto* nested = new BarcodeRow;
    column.add(nested);
    encode_line("0", nested, false, 0, false);
    EXPECT_EQ(thrownCode([&] { column.visit(&throwing); }), unexpected);
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

    auto* imp = new RecordingCanvasImp;
    BarcodeCanvas canvas(imp);
    AbstractBarcodeElement* const composites[] = {&root, top, bottom, nested};
    for (AbstractBarcodeElement* composite : composites) {
        imp->penX = 5;
        imp->penY = 7;
        composite->draw(&canvas);
        EXPECT_EQ(imp->penX, 5u);
        EXPECT_EQ(imp->penY, 7u);
    }

    const RecordingCanvasImp::Call expected[] = {
        {'b', 5, 7, 2, 1, false, L""}, {'s', 7, 7, 2, 1, false, L""},
        {'b', 9, 7, 3, 1, true, L""},  {'b', 5, 8, 1, 1, false, L""},
        {'s', 5, 9, 1, 1, false, L""}, {'t', 6, 8, 4, 2, false, L"ab"},
    };
    ASSERT_GE(imp->calls.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(imp->calls[i], expected[i]) << i;
    }
}

TEST(Code39, KeepsAGivenTextAndRefusesWithoutTouchingIt) {
    StrategyCode39 strategy;
    std::wstring text = L"shown";
    EXPECT_TRUE(VelkoTest::build(strategy, L"AB", 3, &text));
    EXPECT_EQ(text, L"shown");
    EXPECT_TRUE(VelkoTest::refuses(strategy, L"ab", 3));

    BarcodeRow row;
    EXPECT_THROW(StrategyCode39::encodeChar(L'a', &row, false), BarcodeException::Unexpected);
}
