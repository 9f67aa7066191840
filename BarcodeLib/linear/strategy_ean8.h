#pragma once

#include <cstddef>
#include <string>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"
#include "BarcodeLib/strategy/text_layout.h"

namespace BarcodeVelko {

class AbstractBarcodeComposite;

// EAN-8, and the digit sets, guard patterns and tree building that the whole EAN family shares.
// The human-readable digits stand between the guard bars, which reach down into the text row;
// the EAN text layouts choose how the digits are grouped there, EAN1 and EAN2 with a light
// 7-module margin on both sides of the bars that holds the outer digits.
class StrategyEAN8 : public AbstractBarcodeStrategy {
public:
    // Widths in modules: a digit, the light margin beside the bars in EAN1 and EAN2, the
    // digits of one half of each symbol, and the one-line texts (EAN-8's is one module short
    // of its 67-module bars row).
    static constexpr unsigned kDigitModules = 7;
    static constexpr unsigned kMarginModules = 7;
    static constexpr unsigned kEAN8HalfModules = 4 * kDigitModules;
    static constexpr unsigned kEAN13HalfModules = 6 * kDigitModules;
    static constexpr unsigned kEAN8TextModules = 66;
    static constexpr unsigned kEAN13TextModules = 95;

    // Number sets A (left, odd parity), B (left, even parity) and C (right), one row a digit.
    static const char g_aszEAN8TableLeftOdd[10][8];
    static const char g_aszEAN8TableLeftEven[10][8];
    static const char g_aszEAN8TableRightAny[10][8];

    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    const wchar_t* getRawDemoValue() override;
    unsigned getDefaultTextAlign() override;
    // A VisitorSizeEANX, for every member of the family that has one text row.
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    // The guard patterns: the 7 light modules beside the bars in layouts 4 and 5, the edge
    // guard "101" and the centre guard "01010". control true makes them the guard bars of a
    // text row. customData tags the leaves for symbols whose visitor tells rows apart. A null
    // row throws Unexpected.
    static void insertPreSentinel(AbstractBarcodeComposite* row, bool control,
                                  unsigned customData = 0);
    static void insertEdgeSentinel(AbstractBarcodeComposite* row, bool control, bool last,
                                   unsigned customData = 0);
    static void insertCenterSentinel(AbstractBarcodeComposite* row, bool control,
                                     unsigned customData = 0);

protected:
    // Layouts EAN1 and EAN2 put a pre-sentinel on both sides of the bars.
    static bool hasPreSentinels(int textAlign) {
        return textAlign == kTextLayoutEAN1 || textAlign == kTextLayoutEAN2;
    }
    // A codeText that doesn't have the raw form's length is replaced by the raw form.
    static void settleCodeText(std::wstring& codeText, const std::wstring& raw);
    // True if value is exactly length digits; check then holds just the check digit over them.
    static bool checkDigitOf(const wchar_t* value, size_t length, std::wstring& check);
    // True if code is exactly length digits whose last is the check digit of the others.
    static bool isValidRaw(const wchar_t* code, size_t length);

    // Appends one digit from a number set with control false.
    static void insertDigit(const char (*set)[8], wchar_t digit, AbstractBarcodeComposite* row,
                            unsigned customData);

private:
    static void insertBars(const std::wstring& raw, AbstractBarcodeComposite* row, int textAlign);
    static void insertTextRow(const std::wstring& text, const std::wstring& raw,
                              AbstractBarcodeComposite* row, int textAlign, bool showCS);
};

}  // namespace BarcodeVelko
