#pragma once

#include <memory>
#include <string>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

struct StrategyDataMatrixPrivate;

// Data Matrix ECC 200 through libdmtx, square, in the smallest size that holds the message. The
// seven code types differ only in the encodation scheme: 0 ASCII, 1 Base 256, 2 Text, 3 C40,
// 4 X12, 5 EDIFACT, 6 ASCII with the value read as a GS1 element string behind FNC1.
class StrategyDataMatrix : public AbstractBarcodeStrategy {
public:
    static constexpr int kSchemeCount = 7;
    static constexpr int kSchemeGS1 = 6;

    // Throws Unexpected for a scheme outside 0..6.
    explicit StrategyDataMatrix(int scheme);
    ~StrategyDataMatrix() override;
    StrategyDataMatrix(const StrategyDataMatrix&) = delete;
    StrategyDataMatrix& operator=(const StrategyDataMatrix&) = delete;

    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    // One row per module line of the symbol, one leaf unit a module, no quiet zone and no text.
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    void setScheme(int scheme);
    int scheme() const;

private:
    // The message in the form the encoder takes: UTF-8, for the GS1 scheme in raw form with
    // FNC1 and group separator bytes.
    std::string message(const wchar_t* code) const;
    bool encode(const std::string& bytes, AbstractBarcodeElement** element);

    std::unique_ptr<StrategyDataMatrixPrivate> d;
};

}  // namespace BarcodeVelko
