#include "BarcodeLib/png/scanline_deflate.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#ifdef VELKO_HAVE_LIBDEFLATE
#include <libdeflate.h>
#endif

namespace BarcodeVelko {

namespace {

constexpr std::size_t kMinMatch = 3;
constexpr std::size_t kMaxMatch = 258;
constexpr unsigned kEndOfBlock = 256;
constexpr unsigned kFirstLengthSymbol = 257;

struct CodeRange {
    unsigned base;
    unsigned extraBits;
};

// Deflate's length and distance codes (RFC 1951, 3.2.5).
constexpr CodeRange kLengths[] = {
    {3, 0},  {4, 0},  {5, 0},  {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},  {11, 1}, {13, 1},
    {15, 1}, {17, 1}, {19, 2}, {23, 2},  {27, 2},  {31, 2},  {35, 3},  {43, 3},  {51, 3}, {59, 3},
    {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}};
constexpr CodeRange kDistances[] = {{1, 0},     {2, 0},     {3, 0},      {4, 0},      {5, 1},
                                    {7, 1},     {9, 2},     {13, 2},     {17, 3},     {25, 3},
                                    {33, 4},    {49, 4},    {65, 5},     {97, 5},     {129, 6},
                                    {193, 6},   {257, 7},   {385, 7},    {513, 8},    {769, 8},
                                    {1025, 9},  {1537, 9},  {2049, 10},  {3073, 10},  {4097, 11},
                                    {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}};

// The last range whose base is at most value.
template <std::size_t N>
constexpr unsigned rangeOf(const CodeRange (&ranges)[N], unsigned value) {
    unsigned index = 0;
    while (index + 1 < N && ranges[index + 1].base <= value) {
        ++index;
    }
    return index;
}

constexpr std::size_t kWindow = 32768;
// Distances above this many go by their bits from the seventh on, which never split a range
// there.
constexpr std::size_t kNearDistances = 256;
constexpr unsigned kFarShift = 7;

// The ranges of every length and distance looked up at once: a match is made for every few
// bytes of a picture's new lines.
struct RangeTables {
    unsigned char length[kMaxMatch + 1];
    unsigned char nearDistance[kNearDistances + 1];
    unsigned char farDistance[(kWindow >> kFarShift) + 1];
};

constexpr RangeTables makeRangeTables() {
    RangeTables tables{};
    for (unsigned length = kMinMatch; length <= kMaxMatch; ++length) {
        tables.length[length] = static_cast<unsigned char>(rangeOf(kLengths, length));
    }
    for (unsigned distance = 1; distance <= kNearDistances; ++distance) {
        tables.nearDistance[distance] = static_cast<unsigned char>(rangeOf(kDistances, distance));
    }
    for (unsigned high = 0; high <= (kWindow >> kFarShift); ++high) {
        tables.farDistance[high] =
            static_cast<unsigned char>(rangeOf(kDistances, (high << kFarShift) + 1));
    }
    return tables;
}

constexpr RangeTables kRangeTables = makeRangeTables();

unsigned distanceRange(unsigned distance) {
    return distance <= kNearDistances ? kRangeTables.nearDistance[distance]
                                      : kRangeTables.farDistance[(distance - 1) >> kFarShift];
}

class BitWriter {
public:
    explicit BitWriter(std::vector<unsigned char>& out) : out(out) {}

    // Deflate packs numbers from their low bit, Huffman codes from their high bit.
    void number(unsigned value, unsigned bits) {
        buffer |= static_cast<std::uint64_t>(value) << count;
        count += bits;
        while (count >= 8) {
            out.push_back(static_cast<unsigned char>(buffer));
            buffer >>= 8;
            count -= 8;
        }
    }

    void flush() {
        if (count > 0) {
            out.push_back(static_cast<unsigned char>(buffer));
        }
        buffer = 0;
        count = 0;
    }

private:
    std::vector<unsigned char>& out;
    std::uint64_t buffer = 0;
    unsigned count = 0;
};

constexpr unsigned kSymbols = 288;

struct FixedCode {
    // Bit-reversed, as the writer puts it out.
    unsigned short bits[kSymbols];
    unsigned char lengths[kSymbols];
};

constexpr unsigned reversed(unsigned value, unsigned length) {
    unsigned result = 0;
    for (unsigned i = 0; i < length; ++i) {
        result = (result << 1) | ((value >> i) & 1u);
    }
    return result;
}

// The fixed literal and length code (RFC 1951, 3.2.6).
constexpr FixedCode makeFixedCode() {
    FixedCode code{};
    for (unsigned value = 0; value < kSymbols; ++value) {
        unsigned bits = 0;
        unsigned length = 0;
        if (value < 144) {
            bits = 0x30 + value;
            length = 8;
        } else if (value < 256) {
            bits = 0x190 + value - 144;
            length = 9;
        } else if (value < 280) {
            bits = value - 256;
            length = 7;
        } else {
            bits = 0xC0 + value - 280;
            length = 8;
        }
        code.bits[value] = static_cast<unsigned short>(reversed(bits, length));
        code.lengths[value] = static_cast<unsigned char>(length);
    }
    return code;
}

constexpr FixedCode kFixedCode = makeFixedCode();

void symbol(BitWriter& writer, unsigned value) {
    writer.number(kFixedCode.bits[value], kFixedCode.lengths[value]);
}

void match(BitWriter& writer, unsigned length, unsigned distance) {
    const unsigned lengthIndex = kRangeTables.length[length];
    symbol(writer, kFirstLengthSymbol + lengthIndex);
    writer.number(length - kLengths[lengthIndex].base, kLengths[lengthIndex].extraBits);
    const unsigned distanceIndex = distanceRange(distance);
    writer.number(reversed(distanceIndex, 5), 5);
    writer.number(distance - kDistances[distanceIndex].base, kDistances[distanceIndex].extraBits);
}

std::size_t matchLength(const unsigned char* data, std::size_t at, std::size_t size,
                        std::size_t distance) {
    if (at < distance) {
        return 0;
    }
    const std::size_t limit = std::min(kMaxMatch, size - at);
    std::size_t length = 0;
    while (length < limit && data[at + length] == data[at + length - distance]) {
        ++length;
    }
    return length;
}

// Lines that repeat the line above from this one on, as one copy from a line back.
std::size_t copyRepeatedLines(BitWriter& writer, const unsigned char* data, std::size_t at,
                              std::size_t size, std::size_t lineBytes) {
    std::size_t total = 0;
    while (at + total >= lineBytes && at + total + lineBytes <= size &&
           std::memcmp(data + at + total, data + at + total - lineBytes, lineBytes) == 0) {
        total += lineBytes;
    }
    std::size_t left = total;
    while (left >= kMinMatch) {
        std::size_t length = std::min(left, kMaxMatch);
        // The last piece must still be long enough for a match.
        if (left - length > 0 && left - length < kMinMatch) {
            length = left - kMinMatch;
        }
        match(writer, static_cast<unsigned>(length), static_cast<unsigned>(lineBytes));
        left -= length;
    }
    for (std::size_t i = total - left; i < total; ++i) {
        symbol(writer, data[at + i]);
    }
    return total;
}

std::uint32_t adler32(const unsigned char* data, std::size_t size) {
#ifdef VELKO_HAVE_LIBDEFLATE
    // Vectorised there, whatever this file's compiler flags.
    return libdeflate_adler32(1, data, size);
#else
    constexpr std::uint32_t kAdlerModulus = 65521;
    // Bytes that the 32-bit sums take before they could overflow.
    constexpr std::size_t kAdlerRun = 5552;
    constexpr std::size_t kAdlerBlock = 32;
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    while (size > 0) {
        const std::size_t run = std::min(size, kAdlerRun);
        std::size_t i = 0;
        // A block's sums don't wait on each other byte by byte, which the compiler spreads over
        // vector lanes.
        for (; i + kAdlerBlock <= run; i += kAdlerBlock) {
            std::uint32_t sum = 0;
            std::uint32_t weighted = 0;
            for (std::size_t k = 0; k < kAdlerBlock; ++k) {
                sum += data[i + k];
                weighted += static_cast<std::uint32_t>(kAdlerBlock - k) * data[i + k];
            }
            high += static_cast<std::uint32_t>(kAdlerBlock) * low + weighted;
            low += sum;
        }
        for (; i < run; ++i) {
            low += data[i];
            high += low;
        }
        low %= kAdlerModulus;
        high %= kAdlerModulus;
        data += run;
        size -= run;
    }
    return (high << 16) | low;
#endif
}

}  // namespace

void putBigEndian(std::vector<unsigned char>& out, unsigned value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        out.push_back(static_cast<unsigned char>(value >> shift));
    }
}

std::vector<unsigned char> ScanlineDeflate::compress(const unsigned char* lines, std::size_t size,
                                                     std::size_t lineBytes) {
    std::vector<unsigned char> out;
    out.reserve(size / 8 + 64);
    // zlib: deflate with a 32 KB window, no dictionary, the check bits of that.
    out.push_back(0x78);
    out.push_back(0x01);
    BitWriter writer(out);
    writer.number(1, 1);  // the last block
    writer.number(1, 2);  // of fixed codes
    const unsigned char* data = lines;
    std::size_t at = 0;
    while (at < size) {
        if (at % lineBytes == 0) {
            at += copyRepeatedLines(writer, data, at, size, lineBytes);
            if (at == size) {
                break;
            }
        }
        const std::size_t above = matchLength(data, at, size, lineBytes);
        // A repeated line needs no second look.
        const std::size_t before = above < kMaxMatch ? matchLength(data, at, size, 1) : 0;
        const std::size_t length = std::max(above, before);
        if (length >= kMinMatch) {
            match(writer, static_cast<unsigned>(length),
                  static_cast<unsigned>(above >= before ? lineBytes : 1));
            at += length;
        } else {
            symbol(writer, data[at]);
            ++at;
        }
    }
    symbol(writer, kEndOfBlock);
    writer.flush();
    putBigEndian(out, adler32(data, size));
    return out;
}

}  // namespace BarcodeVelko
