#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "BarcodeLib/strategy/abstract_barcode_strategy.h"

namespace BarcodeVelko {

// PDF417 of ISO/IEC 15438 from any text, taken as its UTF-8 bytes: text, numeric and byte
// compaction chosen segment by segment by a simple cost rule, the symbol length descriptor,
// padding, Reed-Solomon codewords, row indicators. A plain symbol: no macro block, no ECI, no
// compact form. The tree has one row per symbol row and no text.
class StrategyPDF417 : public AbstractBarcodeStrategy {
public:
    using Bytes = std::vector<unsigned char>;
    using Codewords = std::vector<uint16_t>;

    // What a byte can be encoded as; the four text sub-modes double as table indices.
    static constexpr uint16_t MODE_NUMERIC = 0x40;
    static constexpr uint16_t MODE_TEXT = 0x20;
    static constexpr uint16_t MODE_BYTE = 0x10;
    static constexpr uint16_t MODE_TEXT_PUNCT = 0x08;
    static constexpr uint16_t MODE_TEXT_MIXED = 0x04;
    static constexpr uint16_t MODE_TEXT_LOWER = 0x02;
    static constexpr uint16_t MODE_TEXT_UPPER = 0x01;

    static constexpr unsigned kLevelCount = 9;
    static constexpr unsigned kMaxColumns = 30;
    static constexpr unsigned kMinRows = 3;
    static constexpr unsigned kMaxRows = 90;
    static constexpr unsigned kMaxCodewords = 928;
    static constexpr size_t kMaxBytes = 4095;

    // The flags of each byte value.
    static const uint16_t g_auPDF417Modes[256];
    // The value of an ASCII character in every text sub-mode that holds it.
    static const uint16_t g_auPDF417TextValues[128];
    // Indexed by sub-mode of origin * 9 + sub-mode of target; 0 is none.
    static const uint16_t g_auPDF417TextShifts[81];
    static const uint16_t g_auPDF417TextLatches[81];
    // The sub-mode to latch through where no direct latch exists.
    static const uint16_t g_auPDF417TextTransitLatches[81];
    // Clusters 0, 3 and 6: the 17-module pattern of each codeword.
    static const char g_aszPDF417Tables[3][929][18];
    // Generator coefficients for levels 0..8, lowest degree first.
    static const uint16_t g_auECL0[2];
    static const uint16_t g_auECL1[4];
    static const uint16_t g_auECL2[8];
    static const uint16_t g_auECL3[16];
    static const uint16_t g_auECL4[32];
    static const uint16_t g_auECL5[64];
    static const uint16_t g_auECL6[128];
    static const uint16_t g_auECL7[256];
    static const uint16_t g_auECL8[512];
    static const uint16_t* const g_apuECL[kLevelCount];

    // True when the text fits a symbol of level 0 with automatic size.
    bool checkRaw(const wchar_t* code) override;
    bool calcCheckSymbol(const wchar_t* value, std::wstring& check) override;
    // first: data columns 1..29, second: rows 3..89, each overriding the automatic size alone;
    // other values leave it. ecl: the level 0..8. codeText is cleared.
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;
    unsigned getDefaultTextAlign() override;
    AbstractBarcodeVisitor* sizeVisitor(AbstractBarcodeElement* root, unsigned canvasWidth,
                                        unsigned canvasHeight, unsigned fontSize, unsigned sentinel,
                                        unsigned aspectX, unsigned aspectY) override;

    // The rows of the symbol, each left indicator, columns codewords, right indicator. Sizes of
    // 0 are worked out and written back. False when the text doesn't fit.
    bool convertMessage(const wchar_t* text, unsigned& columns, unsigned& rows, unsigned level,
                        std::vector<Codewords>& symbolRows);

    // The data codewords of bytes[start, end), behind their latches; throws Unexpected if a
    // step makes no progress.
    void packMessage(const Bytes& bytes, size_t start, size_t end, Codewords& codewords);
    // One segment each, without its latch; the output is cleared first.
    void packText(const Bytes& bytes, size_t start, size_t end, Codewords& codewords);
    void packNumeric(const Bytes& bytes, size_t start, size_t end, Codewords& codewords);
    void packByte(const Bytes& bytes, size_t start, size_t end, Codewords& codewords);
    // Appends 6 bytes as 5 codewords.
    void packByte6(const Bytes& bytes, size_t start, Codewords& codewords);
    // Appends up to 44 digits as count / 3 + 1 codewords.
    void packNumeric44(const Bytes& bytes, size_t start, size_t count, Codewords& codewords);
    // The count of bytes from start on that have a flag of mask.
    size_t getTextSequenceLen(const Bytes& bytes, size_t start, size_t end, uint16_t mask);
    // Writes the byte at position in sub-mode target without leaving current, as two text
    // values, and moves on; false, with nothing written, where that isn't possible.
    bool tryTextShift(const Bytes& bytes, size_t& position, size_t end, uint16_t current,
                      uint16_t target, Codewords& values);

    // The 2^(level+1) correction codewords of codewords, in symbol order.
    void calcEC(const Codewords& codewords, unsigned level, Codewords& correction);

    unsigned getLeftRI(unsigned columns, unsigned rows, unsigned level, unsigned row);
    unsigned getRightRI(unsigned columns, unsigned rows, unsigned level, unsigned row);

private:
    // The element tree of the symbol rows.
    AbstractBarcodeElement* buildTree(const std::vector<Codewords>& symbolRows, unsigned columns,
                                      unsigned rows);
};

}  // namespace BarcodeVelko
