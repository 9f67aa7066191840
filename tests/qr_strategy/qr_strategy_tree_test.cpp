#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "BarcodeLib/QR/qr_code.h"
#include "BarcodeLib/abstract_barcode_visitor.h"
#include "BarcodeLib/barcode_bar.h"
#include "BarcodeLib/barcode_exception.h"
#include "BarcodeLib/barcode_facade2.h"
#include "BarcodeLib/barcode_space.h"
#include "BarcodeLib/smart_ptr.h"
#include "BarcodeLib/strategy_qr.h"

using namespace BarcodeVelko;

namespace {

// Reads a tree back into pixel lines of the given width; a QR tree holds no text.
class LineRecorder : public AbstractBarcodeVisitor {
public:
    explicit LineRecorder(unsigned width) : width(width) {}

    void visit(BarcodeSpace* space) override { append(space, '0'); }
    void visit(BarcodeBar* bar) override { append(bar, '1'); }
    void visit(BarcodeText*) override { ADD_FAILURE() << "text element in a QR tree"; }

    std::vector<std::string> lines;
    unsigned lastRects = 0;
    bool lastRectEndsTree = false;

private:
    void append(AbstractBarcodeRect* rect, char colour) {
        if (lines.empty() || lines.back().size() == width) {
            lines.emplace_back();
        }
        lines.back().append(rect->getMinWidth(), colour);
        EXPECT_LE(lines.back().size(), width) << "a run crosses the end of a line";
        lastRects += rect->isLastRect();
        lastRectEndsTree = rect->isLastRect() && lines.back().size() == width;
    }

    unsigned width;
};

struct Generated {
    bool ok = false;
    SmartPtr<AbstractBarcodeElement> root;
};

void generate(Generated& out, const wchar_t* code, int first, int second, int level,
              std::wstring codeText = L"") {
    StrategyQR strategy;
    AbstractBarcodeElement* element = nullptr;
    out.ok = strategy.generate(code, &element, 0, 0, true, first, second, 1, level, codeText);
    out.root = element;
    EXPECT_TRUE(codeText.empty());
}

}  // namespace

TEST(StrategyQR, TreeIsTheScaledMatrixOneRowPerPixelLine) {
    Generated qr;
    generate(qr, L"QR example", 100, 150, 1);
    ASSERT_TRUE(qr.ok);
    ASSERT_TRUE(qr.root);
    EXPECT_EQ(qr.root->getMinWidth(), 87u);
    EXPECT_EQ(qr.root->getMinHeight(), 87u);
    EXPECT_EQ(qr.root->getWidth(), 87u);
    EXPECT_EQ(qr.root->getHeight(), 87u);

    std::unique_ptr<BitmapMatrix> matrix;
    ASSERT_TRUE(QRcode::generateQRBitmapMatrix("QR example", LevelM, 100, matrix, false));
    LineRecorder recorder(87);
    qr.root->visit(&recorder);
    ASSERT_EQ(recorder.lines.size(), 87u);
    for (int y = 0; y < 87; ++y) {
        std::string expected;
        for (int x = 0; x < 87; ++x) {
            expected += matrix->getColor(x, y) == ColorBlack ? '1' : '0';
        }
        EXPECT_EQ(recorder.lines[y], expected) << "line " << y;
    }
    EXPECT_EQ(recorder.lastRects, 1u);
    EXPECT_TRUE(recorder.lastRectEndsTree);
}

TEST(StrategyQR, SideIsTheSmallerOfFirstAndSecond) {
    struct Case {
        int first, second;
        bool ok;
        unsigned width;
    };
    // Version 1 with its quiet zone is 29 modules a side.
    const Case cases[] = {
        {29, 1000, true, 29}, {1000, 29, true, 29}, {57, 58, true, 29},
        {58, 57, true, 29},   {58, 58, true, 58},   {28, 1000, false, 0},
        {1000, 28, false, 0}, {0, 0, false, 0},     {-5, 100, false, 0},
    };
    for (const Case& c : cases) {
        Generated qr;
        generate(qr, L"QR example", c.first, c.second, 1, L"stale text");
        EXPECT_EQ(qr.ok, c.ok) << c.first << " x " << c.second;
        EXPECT_EQ(qr.root ? qr.root->getMinWidth() : 0u, c.width) << c.first << " x " << c.second;
    }
}

TEST(StrategyQR, LevelOutsideZeroToThreeIsM) {
    for (int param : {-1, 4, 255}) {
        EXPECT_EQ(StrategyQR::ConvToErrorCorrectionLevels(param), LevelM) << param;
    }
}

TEST(StrategyQR, BrokenCallsThrow) {
    StrategyQR strategy;
    std::wstring text;
    EXPECT_THROW(strategy.generate(L"x", nullptr, 0, 0, true, 100, 100, 1, 1, text),
                 BarcodeException::Unexpected);
    EXPECT_THROW(strategy.calcCheckSymbol(nullptr, text), BarcodeException::Unexpected);
    EXPECT_THROW(strategy.sizeVisitor(nullptr, 100, 100, 10, 30, 1, 4),
                 BarcodeException::Unexpected);
    EXPECT_FALSE(StrategyQR::ConvBitmapMatrix2AbstractBarcodeElement(nullptr, nullptr));
}

TEST(StrategyQRFacade, HostSettingsReachTheStrategy) {
    BarcodeFacade2 facade;
    facade.setCodeAuto(false);
    facade.setCodeType(16);
    EXPECT_STREQ(facade.getCodeValue(), L"QR example");
    facade.setColumnCount(100);
    facade.setRowCount(150);
    facade.setCodeValue(L"QR example");
    EXPECT_EQ(facade.getCodeMinWidth(), 87u);
    EXPECT_EQ(facade.getCodeMinHeight(), 87u);
    EXPECT_STREQ(facade.getCodeText(), L"QR example");
    EXPECT_STREQ(facade.getCodeCheckSymbol(), L"");

    // 17 bytes: version 1 at L, version 2 at M.
    facade.setColumnCount(29);
    facade.setRowCount(29);
    facade.setQRErrorCorrectionLevel(0);
    facade.setCodeValue(L"seventeen bytes!!");
    EXPECT_TRUE(facade.generateCode());
    facade.setQRErrorCorrectionLevel(1);
    EXPECT_FALSE(facade.generateCode());

    // In the raw path the side comes from ColumnCount and RowCount, 0 by default.
    facade.setCodeIsRaw(true);
    EXPECT_FALSE(facade.generateCode());
    facade.setColumn2DCount(33);
    facade.setRow2DCount(40);
    EXPECT_TRUE(facade.generateCode());
    EXPECT_EQ(facade.getCodeMinWidth(), 33u);
}
