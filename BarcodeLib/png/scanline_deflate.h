#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace BarcodeVelko {

// The four bytes of value, high first, as PNG and zlib write their numbers.
void putBigEndian(std::vector<unsigned char>& out, unsigned value);

// A zlib stream of PNG scanlines, made in one pass without a match finder: a byte is copied
// from the line above or repeated from the byte or pixel before, else written as it is, in
// blocks of fixed or their own Huffman codes, whichever is shorter. A barcode's lines mostly
// repeat the line above, so this comes close to a general deflate at a fraction of its cost,
// which for a small picture is mostly the setting up of its tables.
class ScanlineDeflate {
public:
    // The longest line: a copy of the line above must reach back within deflate's window.
    static constexpr std::size_t kMaxLineBytes = 32768;

    // Raw deflate blocks of the bytes, the last one final, into out; false when it fails.
    using BandDeflate =
        std::function<bool(const unsigned char*, std::size_t, std::vector<unsigned char>& out)>;

    // lines holds each distinct line once, back to back; rows[i] is how many lines, one under
    // the other, line i stands for. The work grows with the distinct lines, not the picture.
    // With upRepeats a repeated line is written as the Up filter has it, all zeros but the
    // filter byte, which costs less than a copy of a long line. Given band, each run of lines
    // that inBand marks, such as a logo's, goes to it with their repeats, a few megabytes at a
    // time: a general deflate finds more in such lines than copies from the line or pixel
    // before.
    static std::vector<unsigned char> compress(const unsigned char* lines,
                                               const std::vector<std::size_t>& rows,
                                               std::size_t lineBytes, std::size_t pixelBytes,
                                               bool upRepeats, const BandDeflate& band = {},
                                               const std::vector<unsigned char>& inBand = {});
};

}  // namespace BarcodeVelko
