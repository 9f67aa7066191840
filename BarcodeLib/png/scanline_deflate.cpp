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
constexpr unsigned kLiteralSymbols = 286;
constexpr unsigned kDistanceSymbols = 30;
constexpr unsigned kMaxCodeBits = 15;
constexpr unsigned kLengthSymbols = 19;
constexpr unsigned kMaxLengthBits = 7;
constexpr unsigned kAdlerModulus = 65521;
// Tokens of a block: enough for its own code table to pay, few enough to follow the change
// from a symbol's rows to a logo's.
constexpr std::size_t kBlockTokens = std::size_t{1} << 16;
// Tokens below which a block's own codes can't make up for their header, some 40 to 80 bytes,
// with the few bits they save a token.
constexpr std::size_t kMinOwnCodeTokens = 512;
// The most tokens of a stream, counted high, that goes as one block of fixed codes, unpriced:
// most of a small picture's bytes come in matches.
constexpr std::size_t kFixedOnlyTokens = 4096;
// The fewest bytes of a band worth a general deflate, and the most it takes at once: enough
// for its matches to reach back across many lines, little beside the picture.
constexpr std::size_t kMinBandBytes = 16 * 1024;
constexpr std::size_t kBandChunkBytes = 4 * 1024 * 1024;
// Past this many bytes of such lines in all, some 2000 rows of the widest picture, they go one
// by one like the others: the general deflate takes some 2 ns a byte, three times as long, and
// a logo that large would then keep its picture from coming within a second.
constexpr std::size_t kMaxBandBytes = 64 * 1024 * 1024;
constexpr unsigned char kFilterUp = 2;

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
        if (count >= 32) {
            for (int i = 0; i < 4; ++i) {
                out.push_back(static_cast<unsigned char>(buffer >> (8 * i)));
            }
            buffer >>= 32;
            count -= 32;
        }
    }

    // Bits as they come in a deflate stream, from the low bit of the first byte on.
    void bits(const unsigned char* bytes, std::size_t bitCount) {
        // Four bytes at a time: the buffer holds under 32 bits between numbers.
        for (; bitCount >= 32; bitCount -= 32, bytes += 4) {
            number(static_cast<unsigned>(bytes[0] | bytes[1] << 8 | bytes[2] << 16) |
                       static_cast<unsigned>(bytes[3]) << 24,
                   32);
        }
        for (; bitCount >= 8; bitCount -= 8) {
            number(*bytes++, 8);
        }
        if (bitCount > 0) {
            number(*bytes & ((1u << bitCount) - 1), static_cast<unsigned>(bitCount));
        }
    }

    void flush() {
        for (; count > 0; count = count > 8 ? count - 8 : 0) {
            out.push_back(static_cast<unsigned char>(buffer));
            buffer >>= 8;
        }
        buffer = 0;
    }

private:
    std::vector<unsigned char>& out;
    std::uint64_t buffer = 0;
    unsigned count = 0;
};

constexpr unsigned reversed(unsigned value, unsigned length) {
    unsigned result = 0;
    for (unsigned i = 0; i < length; ++i) {
        result = (result << 1) | ((value >> i) & 1u);
    }
    return result;
}

constexpr unsigned kMaxSymbols = 288;

struct HuffmanCode {
    // Bit-reversed, as the writer puts it out.
    std::uint16_t bits[kMaxSymbols] = {};
    unsigned char lengths[kMaxSymbols] = {};

    // The canonical codes of the lengths (RFC 1951, 3.2.2).
    constexpr void assign(unsigned symbols) {
        unsigned perLength[kMaxCodeBits + 1] = {};
        for (unsigned i = 0; i < symbols; ++i) {
            ++perLength[lengths[i]];
        }
        perLength[0] = 0;
        unsigned next[kMaxCodeBits + 1] = {};
        for (unsigned bits = 1, code = 0; bits <= kMaxCodeBits; ++bits) {
            code = (code + perLength[bits - 1]) << 1;
            next[bits] = code;
        }
        for (unsigned i = 0; i < symbols; ++i) {
            if (lengths[i] != 0) {
                bits[i] = static_cast<std::uint16_t>(reversed(next[lengths[i]]++, lengths[i]));
            }
        }
    }

    void put(BitWriter& writer, unsigned symbol) const {
        writer.number(bits[symbol], lengths[symbol]);
    }
};

// The fixed codes (RFC 1951, 3.2.6).
struct FixedCodes {
    HuffmanCode literals;
    HuffmanCode distances;

    constexpr FixedCodes() {
        for (unsigned value = 0; value < kMaxSymbols; ++value) {
            literals.lengths[value] = value < 144 ? 8 : value < 256 ? 9 : value < 280 ? 7 : 8;
        }
        literals.assign(kMaxSymbols);
        for (unsigned value = 0; value < kDistanceSymbols; ++value) {
            distances.lengths[value] = 5;
        }
        distances.assign(kDistanceSymbols);
    }
};

constexpr FixedCodes kFixedCodes{};

void putMatch(BitWriter& writer, const HuffmanCode& literals, const HuffmanCode& distances,
              unsigned length, unsigned distance) {
    const unsigned lengthIndex = kRangeTables.length[length];
    literals.put(writer, kFirstLengthSymbol + lengthIndex);
    writer.number(length - kLengths[lengthIndex].base, kLengths[lengthIndex].extraBits);
    const unsigned index = distanceRange(distance);
    distances.put(writer, index);
    writer.number(distance - kDistances[index].base, kDistances[index].extraBits);
}

// Huffman's code lengths of the counts, at most maxBits: the deepest leaves of a code too deep
// move up, and the shallowest leaves below them move down to pay for it, so the code stays
// complete, as every inflater wants it. At least two symbols must count.
void buildLengths(const unsigned* counts, unsigned symbols, unsigned maxBits,
                  unsigned char* lengths) {
    unsigned leaves[kMaxSymbols];
    unsigned used = 0;
    for (unsigned i = 0; i < symbols; ++i) {
        lengths[i] = 0;
        if (counts[i] != 0) {
            leaves[used++] = i;
        }
    }
    std::stable_sort(leaves, leaves + used,
                     [counts](unsigned a, unsigned b) { return counts[a] < counts[b]; });
    // Leaves, then inner nodes as they are made, which come in rising weight.
    std::uint64_t weight[2 * kMaxSymbols];
    unsigned parent[2 * kMaxSymbols];
    for (unsigned i = 0; i < used; ++i) {
        weight[i] = counts[leaves[i]];
    }
    unsigned leaf = 0;
    unsigned inner = used;
    for (unsigned next = used; next + 1 < 2 * used; ++next) {
        unsigned pair[2];
        for (unsigned& taken : pair) {
            taken =
                leaf < used && (inner >= next || weight[leaf] <= weight[inner]) ? leaf++ : inner++;
            parent[taken] = next;
        }
        weight[next] = weight[pair[0]] + weight[pair[1]];
    }
    unsigned depth[2 * kMaxSymbols];
    unsigned perLength[kMaxSymbols] = {};
    depth[2 * used - 2] = 0;
    for (unsigned i = 2 * used - 2; i-- > 0;) {
        depth[i] = depth[parent[i]] + 1;
        if (i < used) {
            ++perLength[std::min(depth[i], maxBits)];
        }
    }
    std::uint64_t kraft = 0;
    for (unsigned bits = 1; bits <= maxBits; ++bits) {
        kraft += static_cast<std::uint64_t>(perLength[bits]) << (maxBits - bits);
    }
    for (; kraft > (std::uint64_t{1} << maxBits); --kraft) {
        --perLength[maxBits];
        for (unsigned bits = maxBits - 1; bits > 0; --bits) {
            if (perLength[bits] != 0) {
                --perLength[bits];
                perLength[bits + 1] += 2;
                break;
            }
        }
    }
    // The rarest symbols take the longest codes.
    unsigned at = 0;
    for (unsigned bits = maxBits; bits > 0; --bits) {
        for (unsigned n = perLength[bits]; n > 0; --n) {
            lengths[leaves[at++]] = static_cast<unsigned char>(bits);
        }
    }
}

// Counts with at least two symbols counted, as buildLengths needs them.
void countTwo(unsigned* counts, unsigned symbols) {
    unsigned used = 0;
    for (unsigned i = 0; i < symbols; ++i) {
        used += counts[i] != 0;
    }
    for (unsigned i = 0; used < 2; ++i) {
        if (counts[i] == 0) {
            counts[i] = 1;
            ++used;
        }
    }
}

// A block's own codes: their lengths, run-length coded in the code-length alphabet.
struct DynamicHeader {
    static constexpr unsigned char kOrder[kLengthSymbols] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                             11, 4,  12, 3, 13, 2, 14, 1, 15};
    static constexpr unsigned char kExtraBits[3] = {2, 3, 7};

    HuffmanCode literals;
    HuffmanCode distances;
    HuffmanCode lengthCode;
    unsigned literalCount = 0;
    unsigned distanceCount = 0;
    unsigned lengthCount = kLengthSymbols;
    // Code-length symbols, each with its extra value above the low byte.
    std::vector<unsigned> runs;
    unsigned lengthCounts[kLengthSymbols] = {};

    DynamicHeader(unsigned* literalCounts, unsigned* distanceCounts) {
        countTwo(literalCounts, kLiteralSymbols);
        countTwo(distanceCounts, kDistanceSymbols);
        buildLengths(literalCounts, kLiteralSymbols, kMaxCodeBits, literals.lengths);
        buildLengths(distanceCounts, kDistanceSymbols, kMaxCodeBits, distances.lengths);
        literals.assign(kLiteralSymbols);
        distances.assign(kDistanceSymbols);
        literalCount = kLiteralSymbols;
        while (literals.lengths[literalCount - 1] == 0) {
            --literalCount;
        }
        distanceCount = kDistanceSymbols;
        while (distances.lengths[distanceCount - 1] == 0) {
            --distanceCount;
        }
        unsigned char all[kLiteralSymbols + kDistanceSymbols];
        std::copy(literals.lengths, literals.lengths + literalCount, all);
        std::copy(distances.lengths, distances.lengths + distanceCount, all + literalCount);
        const unsigned total = literalCount + distanceCount;
        for (unsigned at = 0; at < total;) {
            const unsigned char value = all[at];
            unsigned run = 1;
            while (at + run < total && all[at + run] == value) {
                ++run;
            }
            at += run;
            if (value == 0) {
                for (; run >= 11; run -= std::min(run, 138u)) {
                    add(18, std::min(run, 138u) - 11);
                }
                if (run >= 3) {
                    add(17, run - 3);
                    run = 0;
                }
            } else {
                add(value, 0);
                --run;
                for (; run >= 3; run -= std::min(run, 6u)) {
                    add(16, std::min(run, 6u) - 3);
                }
            }
            for (; run > 0; --run) {
                add(value, 0);
            }
        }
        countTwo(lengthCounts, kLengthSymbols);
        buildLengths(lengthCounts, kLengthSymbols, kMaxLengthBits, lengthCode.lengths);
        lengthCode.assign(kLengthSymbols);
        while (lengthCount > 4 && lengthCode.lengths[kOrder[lengthCount - 1]] == 0) {
            --lengthCount;
        }
    }

    void add(unsigned symbol, unsigned extra) {
        runs.push_back(symbol | extra << 8);
        ++lengthCounts[symbol];
    }

    std::size_t bits() const {
        std::size_t total = 5 + 5 + 4 + 3 * static_cast<std::size_t>(lengthCount);
        for (const unsigned run : runs) {
            const unsigned symbol = run & 0xFF;
            total += lengthCode.lengths[symbol] + (symbol >= 16 ? kExtraBits[symbol - 16] : 0);
        }
        return total;
    }

    void write(BitWriter& writer) const {
        writer.number(literalCount - kFirstLengthSymbol, 5);
        writer.number(distanceCount - 1, 5);
        writer.number(lengthCount - 4, 4);
        for (unsigned i = 0; i < lengthCount; ++i) {
            writer.number(lengthCode.lengths[kOrder[i]], 3);
        }
        for (const unsigned run : runs) {
            const unsigned symbol = run & 0xFF;
            lengthCode.put(writer, symbol);
            if (symbol >= 16) {
                writer.number(run >> 8, kExtraBits[symbol - 16]);
            }
        }
    }
};

// Matches and literals gathered a block at a time, then written in the shorter of the fixed
// codes and the block's own. A stream too short for its own codes to pay, as a small picture's
// is, goes out as it comes in one block of fixed codes: gathering and pricing it would cost
// more than the rest of the picture.
class BlockWriter {
public:
    BlockWriter(std::vector<unsigned char>& out, bool fixedOnly)
        : writer(out), fixedOnly(fixedOnly) {
        if (fixedOnly) {
            writer.number(1, 1);  // the last block
            writer.number(1, 2);  // of fixed codes
        }
    }

    void literal(unsigned char byte) {
        if (fixedOnly) {
            kFixedCodes.literals.put(writer, byte);
            return;
        }
        tokens.push_back(byte);
        ++literalCounts[byte];
        if (tokens.size() == kBlockTokens) {
            flush(false);
        }
    }

    void match(unsigned length, unsigned distance) {
        if (fixedOnly) {
            putMatch(writer, kFixedCodes.literals, kFixedCodes.distances, length, distance);
            return;
        }
        tokens.push_back(length << 16 | (distance - 1));
        ++literalCounts[kFirstLengthSymbol + kRangeTables.length[length]];
        ++distanceCounts[distanceRange(distance)];
        if (tokens.size() == kBlockTokens) {
            flush(false);
        }
    }

    void finish() {
        if (fixedOnly) {
            kFixedCodes.literals.put(writer, kEndOfBlock);
        } else {
            flush(true);
        }
        writer.flush();
    }

    // Ends the block under way, if any, so that other blocks can follow.
    BitWriter& between() {
        if (!tokens.empty()) {
            flush(false);
        }
        return writer;
    }

private:
    void flush(bool last) {
        writer.number(last ? 1 : 0, 1);
        if (tokens.size() < kMinOwnCodeTokens) {
            writer.number(1, 2);
            writeTokens(kFixedCodes.literals, kFixedCodes.distances);
            clear();
            return;
        }
        literalCounts[kEndOfBlock] = 1;
        const FixedCodes& fixed = kFixedCodes;
        std::size_t fixedBits = 0;
        for (unsigned i = 0; i < kLiteralSymbols; ++i) {
            fixedBits += static_cast<std::size_t>(literalCounts[i]) * fixed.literals.lengths[i];
        }
        for (unsigned i = 0; i < kDistanceSymbols; ++i) {
            fixedBits += static_cast<std::size_t>(distanceCounts[i]) * fixed.distances.lengths[i];
        }
        const DynamicHeader header(literalCounts, distanceCounts);
        std::size_t ownBits = header.bits();
        for (unsigned i = 0; i < kLiteralSymbols; ++i) {
            ownBits += static_cast<std::size_t>(literalCounts[i]) * header.literals.lengths[i];
        }
        for (unsigned i = 0; i < kDistanceSymbols; ++i) {
            ownBits += static_cast<std::size_t>(distanceCounts[i]) * header.distances.lengths[i];
        }
        if (ownBits < fixedBits) {
            writer.number(2, 2);
            header.write(writer);
            writeTokens(header.literals, header.distances);
        } else {
            writer.number(1, 2);
            writeTokens(fixed.literals, fixed.distances);
        }
        clear();
    }

    void clear() {
        tokens.clear();
        std::fill(std::begin(literalCounts), std::end(literalCounts), 0);
        std::fill(std::begin(distanceCounts), std::end(distanceCounts), 0);
    }

    void writeTokens(const HuffmanCode& literals, const HuffmanCode& distances) {
        for (const std::uint32_t token : tokens) {
            const unsigned length = token >> 16;
            if (length == 0) {
                literals.put(writer, token);
                continue;
            }
            putMatch(writer, literals, distances, length, (token & 0xFFFF) + 1);
        }
        literals.put(writer, kEndOfBlock);
    }

    BitWriter writer;
    const bool fixedOnly;
    std::vector<std::uint32_t> tokens;
    unsigned literalCounts[kLiteralSymbols] = {};
    unsigned distanceCounts[kDistanceSymbols] = {};
};

// Reads a deflate stream, to find where its blocks begin and end. The bytes must go on for
// kReadAhead bytes past size.
class BitReader {
public:
    static constexpr std::size_t kReadAhead = 8;

    BitReader(const unsigned char* bytes, std::size_t size) : bytes(bytes), size(size) {}

    // The next bits, at most 32, without taking them.
    unsigned peek(unsigned bits) const {
        if (at / 8 >= size) {
            return 0;
        }
        std::uint64_t word;
        std::memcpy(&word, bytes + at / 8, sizeof word);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
        word = __builtin_bswap64(word);
#endif
        return static_cast<unsigned>((word >> (at % 8)) & ((std::uint64_t{1} << bits) - 1));
    }

    void skip(std::size_t bits) {
        at += bits;
    }

    unsigned number(unsigned bits) {
        const unsigned value = peek(bits);
        skip(bits);
        return value;
    }

    void skipToByte() {
        at = (at + 7) / 8 * 8;
    }
    std::size_t position() const {
        return at;
    }
    bool failed() const {
        return at > 8 * size;
    }

private:
    const unsigned char* bytes;
    std::size_t size;
    std::size_t at = 0;
};

// A canonical Huffman code to read: short codes at one look-up, longer ones a bit at a time.
class HuffmanReader {
public:
    HuffmanReader(const unsigned char* lengths, unsigned symbols) {
        HuffmanCode code;
        std::copy(lengths, lengths + symbols, code.lengths);
        code.assign(symbols);
        for (unsigned i = 0; i < symbols; ++i) {
            ++perLength[lengths[i]];
            if (lengths[i] != 0 && lengths[i] <= kFastBits) {
                for (unsigned index = code.bits[i]; index < (1u << kFastBits);
                     index += 1u << lengths[i]) {
                    fast[index] = static_cast<std::uint16_t>(i << 4 | lengths[i]);
                }
            }
        }
        unsigned offsets[kMaxCodeBits + 2] = {};
        for (unsigned bits = 1; bits <= kMaxCodeBits; ++bits) {
            offsets[bits + 1] = offsets[bits] + perLength[bits];
        }
        for (unsigned i = 0; i < symbols; ++i) {
            if (lengths[i] != 0) {
                ordered[offsets[lengths[i]]++] = static_cast<std::uint16_t>(i);
            }
        }
    }

    // The next symbol; -1 for a code that isn't there.
    int read(BitReader& in) const {
        if (const unsigned entry = fast[in.peek(kFastBits)]) {
            in.skip(entry & 15);
            return static_cast<int>(entry >> 4);
        }
        int code = 0;
        int first = 0;
        int index = 0;
        for (unsigned bits = 1; bits <= kMaxCodeBits; ++bits) {
            code |= static_cast<int>(in.number(1));
            const int count = static_cast<int>(perLength[bits]);
            if (code - first < count) {
                return ordered[index + code - first];
            }
            index += count;
            first = (first + count) << 1;
            code <<= 1;
        }
        return -1;
    }

private:
    static constexpr unsigned kFastBits = 10;

    unsigned perLength[kMaxCodeBits + 1] = {};
    std::uint16_t ordered[kMaxSymbols] = {};
    // Symbol and length of each code of at most kFastBits, at every index that starts with it.
    std::uint16_t fast[1u << kFastBits] = {};
};

// Walks one block's symbols up to its end; false on anything out of place.
bool skipSymbols(BitReader& in, const HuffmanReader& literals, const HuffmanReader& distances) {
    for (;;) {
        const int symbol = literals.read(in);
        if (symbol < 0 || in.failed() || symbol >= static_cast<int>(kLiteralSymbols)) {
            return false;
        }
        if (symbol == static_cast<int>(kEndOfBlock)) {
            return true;
        }
        if (symbol > static_cast<int>(kEndOfBlock)) {
            in.number(kLengths[symbol - kFirstLengthSymbol].extraBits);
            const int distance = distances.read(in);
            if (distance < 0 || distance >= static_cast<int>(kDistanceSymbols)) {
                return false;
            }
            in.number(kDistances[distance].extraBits);
        }
    }
}

// The code lengths of a block of its own codes, read after its header bits.
bool readDynamicCodes(BitReader& in, unsigned char* literalLengths,
                      unsigned char* distanceLengths) {
    const unsigned literalCount = in.number(5) + kFirstLengthSymbol;
    const unsigned distanceCount = in.number(5) + 1;
    const unsigned lengthCount = in.number(4) + 4;
    unsigned char lengthLengths[kLengthSymbols] = {};
    for (unsigned i = 0; i < lengthCount; ++i) {
        lengthLengths[DynamicHeader::kOrder[i]] = static_cast<unsigned char>(in.number(3));
    }
    const HuffmanReader lengthCode(lengthLengths, kLengthSymbols);
    unsigned char all[kLiteralSymbols + kDistanceSymbols] = {};
    const unsigned total = literalCount + distanceCount;
    if (literalCount > kLiteralSymbols || distanceCount > kDistanceSymbols) {
        return false;
    }
    for (unsigned at = 0; at < total;) {
        const int symbol = lengthCode.read(in);
        if (symbol < 0 || in.failed()) {
            return false;
        }
        if (symbol < 16) {
            all[at++] = static_cast<unsigned char>(symbol);
            continue;
        }
        if (symbol == 16 && at == 0) {
            return false;
        }
        const unsigned char value = symbol == 16 ? all[at - 1] : 0;
        const unsigned run = symbol == 16   ? 3 + in.number(2)
                             : symbol == 17 ? 3 + in.number(3)
                                            : 11 + in.number(7);
        if (at + run > total) {
            return false;
        }
        std::fill(all + at, all + at + run, value);
        at += run;
    }
    std::copy(all, all + literalCount, literalLengths);
    std::copy(all + literalCount, all + total, distanceLengths);
    return !in.failed();
}

// Where the last block of a raw deflate stream starts and where the stream's bits end, so that
// the last block can be made not the last and other blocks follow it.
struct StreamEnd {
    std::size_t lastBlock = 0;
    std::size_t end = 0;
};

bool findStreamEnd(const unsigned char* raw, std::size_t size, StreamEnd& found) {
    BitReader in(raw, size);
    for (bool last = false; !last;) {
        found.lastBlock = in.position();
        last = in.number(1) != 0;
        const unsigned type = in.number(2);
        if (type == 0) {
            in.skipToByte();
            const unsigned length = in.number(16);
            if ((in.number(16) ^ 0xFFFFu) != length) {
                return false;
            }
            in.skip(8 * static_cast<std::size_t>(length));
        } else if (type == 1) {
            const FixedCodes& fixed = kFixedCodes;
            if (!skipSymbols(in, HuffmanReader(fixed.literals.lengths, kMaxSymbols),
                             HuffmanReader(fixed.distances.lengths, kDistanceSymbols))) {
                return false;
            }
        } else {
            unsigned char literalLengths[kLiteralSymbols] = {};
            unsigned char distanceLengths[kDistanceSymbols] = {};
            if (type != 2 || !readDynamicCodes(in, literalLengths, distanceLengths) ||
                !skipSymbols(in, HuffmanReader(literalLengths, kLiteralSymbols),
                             HuffmanReader(distanceLengths, kDistanceSymbols))) {
                return false;
            }
        }
        if (in.failed()) {
            return false;
        }
    }
    found.end = in.position();
    return true;
}

// A band's blocks from the general deflate into the stream, the last one no longer the last;
// false, with nothing written, when they can't be had.
bool spliceBand(BlockWriter& blocks, const ScanlineDeflate::BandDeflate& band,
                const unsigned char* bytes, std::size_t size) {
    std::vector<unsigned char> raw;
    StreamEnd end;
    if (!band(bytes, size, raw)) {
        return false;
    }
    const std::size_t rawSize = raw.size();
    raw.resize(rawSize + BitReader::kReadAhead);
    if (!findStreamEnd(raw.data(), rawSize, end)) {
        return false;
    }
    raw[end.lastBlock / 8] &= static_cast<unsigned char>(~(1u << (end.lastBlock % 8)));
    blocks.between().bits(raw.data(), end.end);
    return true;
}

// How many bytes from the start a and b have in common, up to limit.
std::size_t common(const unsigned char* a, const unsigned char* b, std::size_t limit) {
    std::size_t length = 0;
    for (; length + 8 <= limit; length += 8) {
        std::uint64_t x;
        std::uint64_t y;
        std::memcpy(&x, a + length, 8);
        std::memcpy(&y, b + length, 8);
        if (x != y) {
            break;
        }
    }
    while (length < limit && a[length] == b[length]) {
        ++length;
    }
    return length;
}

// A line of its own: each byte copied from the line above, or from the pixel or the byte
// before, as far as that goes, else written as it is.
void encodeLine(BlockWriter& blocks, const unsigned char* line, const unsigned char* above,
                std::size_t lineBytes, std::size_t pixelBytes) {
    // A byte's pixel is the byte before it at one byte a pixel.
    const std::size_t distances[2] = {pixelBytes, std::size_t{pixelBytes == 1 ? 0u : 1u}};
    for (std::size_t at = 0; at < lineBytes;) {
        const std::size_t limit = std::min(kMaxMatch, lineBytes - at);
        std::size_t best = above ? common(line + at, above + at, limit) : 0;
        std::size_t distance = lineBytes;
        for (const std::size_t back : distances) {
            if (best < limit && back != 0 && at >= back) {
                const std::size_t length = common(line + at, line + at - back, limit);
                if (length > best) {
                    best = length;
                    distance = back;
                }
            }
        }
        if (best >= kMinMatch) {
            blocks.match(static_cast<unsigned>(best), static_cast<unsigned>(distance));
            at += best;
        } else {
            blocks.literal(line[at]);
            ++at;
        }
    }
}

// Bytes that repeat those distance back, up to the end of a line: as matches, but for the last
// byte or two, too few for one.
void copyBytes(BlockWriter& blocks, std::size_t bytes, std::size_t distance,
               const unsigned char* lineEnd) {
    std::size_t left = bytes;
    while (left >= kMinMatch) {
        std::size_t length = std::min(left, kMaxMatch);
        // The last piece must still be long enough for a match.
        if (left - length > 0 && left - length < kMinMatch) {
            length = left - kMinMatch;
        }
        blocks.match(static_cast<unsigned>(length), static_cast<unsigned>(distance));
        left -= length;
    }
    for (; left > 0; --left) {
        blocks.literal(lineEnd[-static_cast<std::ptrdiff_t>(left)]);
    }
}

// Adler-32 of the bytes, going on from the sum of those before them.
std::uint32_t adler32(std::uint32_t start, const unsigned char* data, std::size_t size) {
#ifdef VELKO_HAVE_LIBDEFLATE
    // Vectorised there, whatever this file's compiler flags.
    return libdeflate_adler32(start, data, size);
#else
    // Bytes that the 32-bit sums take before they could overflow.
    constexpr std::size_t kAdlerRun = 5552;
    constexpr std::size_t kAdlerBlock = 32;
    std::uint32_t low = start & 0xFFFF;
    std::uint32_t high = start >> 16;
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

// Adler-32 of lines that come several times: a line's own sums, once, say what all its copies
// add, in a few multiplications however many they are.
class Adler {
public:
    void add(const unsigned char* line, std::size_t size, std::size_t times) {
        if (times == 1) {
            sum = adler32(sum, line, size);
            return;
        }
        const std::uint32_t alone = adler32(1, line, size);
        const std::uint64_t bytes = size % kAdlerModulus;
        const std::uint64_t own = ((alone & 0xFFFF) + kAdlerModulus - 1) % kAdlerModulus;
        const std::uint64_t weighted = ((alone >> 16) + kAdlerModulus - bytes) % kAdlerModulus;
        std::uint64_t low = sum & 0xFFFF;
        std::uint64_t high = sum >> 16;
        // Copy k starts with low grown by k times the line's own sum: the copies add the
        // triangle number of times - 1 of those.
        const std::uint64_t copies = times % kAdlerModulus;
        const std::uint64_t triangle =
            times % 2 == 0 ? times / 2 % kAdlerModulus * ((times - 1) % kAdlerModulus)
                           : times % kAdlerModulus * ((times - 1) / 2 % kAdlerModulus);
        high = (high + copies * (bytes * low % kAdlerModulus) +
                triangle % kAdlerModulus * (bytes * own % kAdlerModulus) + copies * weighted) %
               kAdlerModulus;
        low = (low + copies * own) % kAdlerModulus;
        sum = static_cast<std::uint32_t>(high << 16 | low);
    }

    unsigned value() const { return sum; }

private:
    std::uint32_t sum = 1;
};

}  // namespace

void putBigEndian(std::vector<unsigned char>& out, unsigned value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        out.push_back(static_cast<unsigned char>(value >> shift));
    }
}

std::vector<unsigned char> ScanlineDeflate::compress(const unsigned char* lines,
                                                     const std::vector<std::size_t>& rows,
                                                     std::size_t lineBytes, std::size_t pixelBytes,
                                                     bool upRepeats, const BandDeflate& band,
                                                     const std::vector<unsigned char>& inBand) {
    std::vector<unsigned char> out;
    out.reserve(rows.size() * lineBytes / 8 + 64);
    // zlib: deflate with a 32 KB window, no dictionary, the check bits of that.
    out.push_back(0x78);
    out.push_back(0x01);
    // The most tokens the stream can take: a literal for every byte of a line of its own and
    // the matches of the lines that repeat.
    std::size_t mostTokens = rows.size() * lineBytes;
    for (const std::size_t times : rows) {
        mostTokens +=
            (times - 1) * (upRepeats ? 5 + lineBytes / kMaxMatch : 3 + lineBytes / kMaxMatch);
    }
    const bool fixedOnly = mostTokens < kFixedOnlyTokens;
    BlockWriter blocks(out, fixedOnly);
    Adler adler;
    std::vector<unsigned char> upLine(upRepeats ? lineBytes : 0);
    if (upRepeats) {
        upLine[0] = kFilterUp;
    }
    const unsigned char* above = nullptr;
    // A line as the stream has it, one by one.
    const auto codeLine = [&](const unsigned char* line) {
        encodeLine(blocks, line, above, lineBytes, pixelBytes);
        adler.add(line, lineBytes, 1);
        above = line;
    };
    // The lines of a band chunk, to the general deflate, or one by one where it fails. Lines
    // that follow one another in lines go as they are; others are gathered.
    std::vector<const unsigned char*> chunk;
    std::vector<unsigned char> chunkBytes;
    const auto flushChunk = [&]() {
        const std::size_t size = chunk.size() * lineBytes;
        const unsigned char* bytes = chunk.empty() ? nullptr : chunk.front();
        if (chunk.size() > 1 && chunk.back() != bytes + size - lineBytes) {
            chunkBytes.resize(size);
            for (std::size_t n = 0; n < chunk.size(); ++n) {
                std::memcpy(&chunkBytes[n * lineBytes], chunk[n], lineBytes);
            }
            bytes = chunkBytes.data();
        }
        if (size >= kMinBandBytes && spliceBand(blocks, band, bytes, size)) {
            adler.add(bytes, size, 1);
            above = chunk.back();
        } else {
            std::for_each(chunk.begin(), chunk.end(), codeLine);
        }
        chunk.clear();
    };
    const std::size_t chunkLines = std::max<std::size_t>(1, kBandChunkBytes / lineBytes);
    const auto marked = [&](std::size_t i) { return i < inBand.size() && inBand[i] != 0; };
    std::size_t bandBytes = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        bandBytes += marked(i) ? rows[i] * lineBytes : 0;
    }
    const bool banding = band && !fixedOnly && bandBytes <= kMaxBandBytes;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const unsigned char* line = lines + i * lineBytes;
        if (banding && marked(i)) {
            for (std::size_t n = 0; n < rows[i]; ++n) {
                chunk.push_back(n == 0 ? line : upRepeats ? upLine.data() : line);
                if (chunk.size() == chunkLines) {
                    flushChunk();
                }
            }
            if (!marked(i + 1)) {
                flushChunk();
            }
            continue;
        }
        codeLine(line);
        if (rows[i] == 1) {
            continue;
        }
        if (upRepeats) {
            // Zeros from the byte before cost far less than copies from a long line back.
            for (std::size_t n = 1; n < rows[i]; ++n) {
                blocks.literal(kFilterUp);
                blocks.literal(0);
                copyBytes(blocks, lineBytes - 2, 1, upLine.data() + lineBytes);
            }
            above = upLine.data();
        } else {
            copyBytes(blocks, (rows[i] - 1) * lineBytes, lineBytes, line + lineBytes);
        }
        adler.add(above, lineBytes, rows[i] - 1);
    }
    blocks.finish();
    putBigEndian(out, adler.value());
    return out;
}

}  // namespace BarcodeVelko
