#pragma once

#include "BarcodeLib/qr/qr_levels.h"
#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

class BitmapMatrix;

namespace BarcodeVelko {

// QR Code: the text's UTF-8 bytes in one byte-mode segment. Unlike the linear symbologies the
// tree is built in pixels, quiet zone included, at the largest whole scale that fits.
class StrategyQR : public AbstractBarcodeStrategy {
public:
    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    // first and second: the smaller is the side the symbol may fill; param: the level 0..3.
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    // 0..3 are L, M, Q, H; anything else is M.
    static ErrorCorrectionLevels ConvToErrorCorrectionLevels(int level);
    // A column of one row per pixel line of the matrix; false for a null argument.
    static bool ConvBitmapMatrix2AbstractBarcodeElement(const BitmapMatrix* matrix,
                                                        AbstractBarcodeElement** element);

private:
    // The tree of the matrix blown up scale times: one row per pixel line, each line that
    // repeats the one above showing that line's leaves.
    static AbstractBarcodeElement* buildColumn(const BitmapMatrix& matrix, int scale);
};

}  // namespace BarcodeVelko
