#include "BarcodeLib/png/dm2png32.h"

#include "BarcodeLib/png/scanline_deflate.h"

#include <lodepng.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <numeric>

#ifdef VELKO_HAVE_LIBDEFLATE
#include <libdeflate.h>
#endif
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace BarcodeVelko {

namespace {

// LodePNG's own code for an input buffer that isn't there.
constexpr unsigned kNoInput = 48;
constexpr unsigned kOutOfMemory = 83;
constexpr unsigned kCompressionFailed = 111;
constexpr unsigned kMaxPaletteSize = 256;
// Scanline bytes from which a picture is large: it may go to the general deflate (see writePng),
// and a white-first one keeps the palette (see encodeGrey).
constexpr size_t kLargeScanlines = 32 * 1024;
// PNG colour types.
constexpr unsigned char kTrueColour = 2;
constexpr unsigned char kIndexedColour = 3;
constexpr unsigned char kTrueColourWithAlpha = 6;

// The colours of a picture, in order of appearance, as long as there are few enough for a
// palette.
struct Palette {
    unsigned colors[kMaxPaletteSize];
    unsigned size = 0;

    // The index of the colour, added if new; -1 when the palette is full.
    int indexOf(unsigned color) {
        for (unsigned i = 0; i < size; ++i) {
            if (colors[i] == color) {
                return static_cast<int>(i);
            }
        }
        if (size == kMaxPaletteSize) {
            return -1;
        }
        colors[size] = color;
        return static_cast<int>(size++);
    }

    unsigned bitDepth() const { return size <= 2 ? 1 : size <= 4 ? 2 : size <= 16 ? 4 : 8; }
};

// One PNG scanline: the filter byte, then width pixels of depth bits padded to a whole byte.
size_t scanlineBytes(unsigned width, unsigned depth) {
    return 1 + (static_cast<size_t>(width) * depth + 7) / 8;
}

// 1 for each row that repeats the row above, as most rows of a barcode do: found once, they
// then cost no more than a count.
using Repeats = std::vector<unsigned char>;

// The rows that the canvas already knows to repeat (hints, may be null) aren't compared.
Repeats findRepeats(const unsigned char* pixels, unsigned width, unsigned height,
                    const unsigned char* hints) {
    const size_t bytes = 4 * static_cast<size_t>(width);
    Repeats repeats(height, 0);
    for (unsigned y = 1; y < height; ++y) {
        const unsigned char* row = pixels + bytes * y;
        repeats[y] = (hints && hints[y]) || std::memcmp(row, row - bytes, bytes) == 0;
    }
    return repeats;
}

// PNG scanlines with each run of equal lines kept once.
class Scanlines {
public:
    Scanlines(size_t lineBytes, const Repeats& repeats) : lineBytes(lineBytes) {
        const size_t distinct =
            static_cast<size_t>(std::count(repeats.begin(), repeats.end(), false));
        bytes.reserve(distinct * lineBytes);
        rows.reserve(distinct);
    }

    // A new zeroed line to fill, or nullptr for a row that repeats the one above.
    unsigned char* next(bool repeated) {
        if (repeated && !rows.empty()) {
            ++rows.back();
            return nullptr;
        }
        rows.push_back(1);
        bytes.resize(bytes.size() + lineBytes);
        return &bytes[bytes.size() - lineBytes];
    }

    // The line of row y, which must be in the picture.
    const unsigned char* lineOfRow(size_t y) const {
        size_t line = 0;
        for (size_t covered = rows[0]; covered <= y;) {
            covered += rows[++line];
        }
        return &bytes[line * lineBytes];
    }

    // Every line, as a general deflate takes them.
    std::vector<unsigned char> expanded() const {
        std::vector<unsigned char> all;
        all.reserve(lineBytes * std::accumulate(rows.begin(), rows.end(), size_t{0}));
        for (size_t i = 0; i < rows.size(); ++i) {
            for (size_t n = 0; n < rows[i]; ++n) {
                all.insert(all.end(), bytes.begin() + i * lineBytes,
                           bytes.begin() + (i + 1) * lineBytes);
            }
        }
        return all;
    }

    const size_t lineBytes;
    // The distinct lines, back to back, and how many rows each stands for.
    std::vector<unsigned char> bytes;
    std::vector<size_t> rows;
    // For true colour, 1 for each distinct line of more than two colours, a logo's.
    std::vector<unsigned char> manyColours;
};

// A mask of eight pixels, the first pixel in bit 0, as a byte whose high bit is the first pixel.
constexpr std::array<unsigned char, 256> makeReversedBytes() {
    std::array<unsigned char, 256> reversed{};
    for (unsigned value = 0; value < 256; ++value) {
        unsigned bits = 0;
        for (unsigned i = 0; i < 8; ++i) {
            bits |= ((value >> i) & 1u) << (7 - i);
        }
        reversed[value] = static_cast<unsigned char>(bits);
    }
    return reversed;
}

constexpr std::array<unsigned char, 256> kReversedBytes = makeReversedBytes();

// Eight pixels of the two colours as the bits of a byte, the second colour set; false at a
// third colour.
bool packByte(const unsigned char* pixels, const unsigned (&colours)[2], unsigned char& byte) {
#if defined(__SSE2__)
    // Four pixels a compare: most of a picture's distinct rows are packed here.
    const __m128i first = _mm_set1_epi32(static_cast<int>(colours[0]));
    const __m128i second = _mm_set1_epi32(static_cast<int>(colours[1]));
    const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels));
    const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels + 16));
    const auto mask = [](__m128i low, __m128i high) {
        return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(low)) |
                                     _mm_movemask_ps(_mm_castsi128_ps(high)) << 4);
    };
    const unsigned isFirst = mask(_mm_cmpeq_epi32(left, first), _mm_cmpeq_epi32(right, first));
    const unsigned isSecond = mask(_mm_cmpeq_epi32(left, second), _mm_cmpeq_epi32(right, second));
    byte = kReversedBytes[~isFirst & 0xFFu];
    return (isFirst | isSecond) == 0xFFu;
#else
    unsigned isFirst = 0;
    unsigned isSecond = 0;
    for (unsigned i = 0; i < 8; ++i) {
        unsigned color;
        std::memcpy(&color, pixels + 4 * i, 4);
        isFirst |= static_cast<unsigned>(color == colours[0]) << i;
        isSecond |= static_cast<unsigned>(color == colours[1]) << i;
    }
    byte = kReversedBytes[~isFirst & 0xFFu];
    return (isFirst | isSecond) == 0xFFu;
#endif
}

// The usual picture, of one or two colours, in one pass: the palette in order of appearance and
// the scanlines at one bit a pixel, as packIndices makes them. False at a third colour.
bool packTwoColours(const unsigned char* pixels, unsigned width, unsigned height,
                    const Repeats& repeats, Palette& palette, Scanlines& lines) {
    unsigned colours[2] = {0, 0};
    unsigned count = 0;
    if (width > 0 && height > 0) {
        std::memcpy(&colours[0], pixels, 4);
        count = 1;
    }
    for (unsigned y = 0; y < height; ++y) {
        const unsigned char* row = pixels + 4 * static_cast<size_t>(width) * y;
        unsigned char* out = lines.next(repeats[y]);
        if (!out) {
            continue;
        }
        unsigned char* packed = out + 1;
        unsigned accumulated = 0;
        for (unsigned x = 0; x < width; ++x) {
            // Once both colours are known, eight pixels make a byte without a branch.
            while (count == 2 && x % 8 == 0 && x + 8 <= width) {
                if (!packByte(row + 4 * static_cast<size_t>(x), colours, *packed)) {
                    return false;
                }
                ++packed;
                x += 8;
            }
            if (x == width) {
                break;
            }
            unsigned color;
            std::memcpy(&color, row + 4 * x, 4);
            const bool second = color != colours[0];
            if (second && (count < 2 || color != colours[1])) {
                if (count == 2) {
                    return false;
                }
                colours[1] = color;
                count = 2;
            }
            accumulated = (accumulated << 1) | static_cast<unsigned>(second);
            if (x % 8 == 7) {
                *packed++ = static_cast<unsigned char>(accumulated);
                accumulated = 0;
            }
        }
        if (width % 8 != 0) {
            *packed = static_cast<unsigned char>(accumulated << (8 - width % 8));
        }
    }
    palette.colors[0] = colours[0];
    palette.colors[1] = colours[1];
    palette.size = count;
    return true;
}

// The picture as 8-bit indices into its palette, the colours in order of appearance; false when
// it has more colours than a palette holds. Within a row only a change of colour is looked up.
bool indexColours(const unsigned char* pixels, unsigned width, unsigned height,
                  const Repeats& repeats, Palette& palette, Scanlines& indices) {
    for (unsigned y = 0; y < height; ++y) {
        const unsigned char* row = pixels + 4 * static_cast<size_t>(width) * y;
        unsigned char* out = indices.next(repeats[y]);
        if (!out) {
            continue;
        }
        unsigned previous = 0;
        int index = 0;
        for (unsigned x = 0; x < width; ++x) {
            unsigned color;
            std::memcpy(&color, row + 4 * x, 4);
            if (x == 0 || color != previous) {
                index = palette.indexOf(color);
                if (index < 0) {
                    return false;
                }
                previous = color;
            }
            out[1 + x] = static_cast<unsigned char>(index);
        }
    }
    return true;
}

// The PNG scanlines of 8-bit indices at a lower depth: depth bits each from the high bit, each
// line padded to a whole byte.
Scanlines packIndices(Scanlines indices, unsigned width, unsigned depth) {
    if (depth == 8) {
        return indices;
    }
    Scanlines lines(scanlineBytes(width, depth), {});
    lines.rows = indices.rows;
    lines.bytes.assign(lines.rows.size() * lines.lineBytes, 0);
    for (size_t i = 0; i < lines.rows.size(); ++i) {
        const unsigned char* index = &indices.bytes[i * indices.lineBytes + 1];
        unsigned char* out = &lines.bytes[i * lines.lineBytes + 1];
        unsigned accumulated = 0;
        unsigned bits = 0;
        for (unsigned x = 0; x < width; ++x) {
            accumulated = (accumulated << depth) | index[x];
            bits += depth;
            if (bits == 8) {
                *out++ = static_cast<unsigned char>(accumulated);
                accumulated = 0;
                bits = 0;
            }
        }
        if (bits != 0) {
            *out = static_cast<unsigned char>(accumulated << (8 - bits));
        }
    }
    return lines;
}

#ifdef VELKO_HAVE_LIBDEFLATE
// Measured on 45 of our pictures from 150 x 100 to 2000 x 2000 against LodePNG's own encoding:
// at level 6 some large ones came out up to 47 % bigger; level 7 keeps all but one within 5 %
// (the worst 7 %) at little more time, still a fraction of LodePNG's. Only large pictures come
// here (see writePng), so one level serves.
constexpr int kLevel = 7;
// A logo's lines at level 4 take less than half the time of level 7, their stream some 10 to
// 40 % bigger.
constexpr int kBandLevel = 4;

struct CompressorDeleter {
    void operator()(libdeflate_compressor* compressor) const {
        libdeflate_free_compressor(compressor);
    }
};

using Compressor = std::unique_ptr<libdeflate_compressor, CompressorDeleter>;

// Compressors kept for reuse, as many as pictures were ever made at once: making one costs more
// than a barcode's compression. A pool, not one per thread: thread-local storage of a library
// that the host loads and unloads outlives the library in tools such as LeakSanitizer, which
// then read freed memory.
struct CompressorPool {
    std::mutex mutex;
    std::vector<Compressor> kept;
};

// A pool for each level in use.
template <int Level>
CompressorPool& compressorPool() {
    static CompressorPool pool;
    return pool;
}

// A compressor of the level, back in its pool at the end.
template <int Level>
class PooledCompressor {
public:
    PooledCompressor() {
        CompressorPool& pool = compressorPool<Level>();
        {
            std::lock_guard<std::mutex> lock(pool.mutex);
            if (!pool.kept.empty()) {
                compressor = std::move(pool.kept.back());
                pool.kept.pop_back();
                return;
            }
        }
        compressor.reset(libdeflate_alloc_compressor(Level));
    }
    ~PooledCompressor() {
        if (!compressor) {
            return;
        }
        CompressorPool& pool = compressorPool<Level>();
        std::lock_guard<std::mutex> lock(pool.mutex);
        try {
            pool.kept.push_back(std::move(compressor));
        } catch (const std::bad_alloc&) {
            // Not kept: the next picture makes a new one.
        }
    }
    PooledCompressor(const PooledCompressor&) = delete;
    PooledCompressor& operator=(const PooledCompressor&) = delete;

    libdeflate_compressor* get() const { return compressor.get(); }

private:
    Compressor compressor;
};

unsigned chunkCrc(const unsigned char* bytes, size_t size) {
    return libdeflate_crc32(0, bytes, size);
}

// The bytes deflated, in a zlib stream or as raw blocks.
template <int Level>
unsigned deflateBytes(std::vector<unsigned char>& out, const unsigned char* in, size_t inSize,
                      bool zlib) {
    const PooledCompressor<Level> pooled;
    libdeflate_compressor* deflater = pooled.get();
    if (!deflater) {
        return kOutOfMemory;
    }
    // Room for the worst case, left as it comes: a large picture deflates to a small fraction
    // of it, and zeroing it all cost as much as the deflate.
    const size_t bound = zlib ? libdeflate_zlib_compress_bound(deflater, inSize)
                              : libdeflate_deflate_compress_bound(deflater, inSize);
    const std::unique_ptr<unsigned char[]> buffer(new (std::nothrow) unsigned char[bound]);
    if (!buffer) {
        return kOutOfMemory;
    }
    const size_t written =
        zlib ? libdeflate_zlib_compress(deflater, in, inSize, buffer.get(), bound)
             : libdeflate_deflate_compress(deflater, in, inSize, buffer.get(), bound);
    if (written == 0) {
        return kCompressionFailed;
    }
    out.assign(buffer.get(), buffer.get() + written);
    return 0;
}

unsigned zlibCompress(std::vector<unsigned char>& out, const unsigned char* in, size_t inSize) {
    return deflateBytes<kLevel>(out, in, inSize, true);
}

// A true-colour picture's lines of many colours, a logo's, to the general deflate, which makes
// them a half to a third the size that copies from the line or pixel before would.
const ScanlineDeflate::BandDeflate kBandDeflate = [](const unsigned char* in, size_t size,
                                                     std::vector<unsigned char>& out) {
    return deflateBytes<kBandLevel>(out, in, size, false) == 0;
};
#else
// Without libdeflate (so on Android unless it is built for it) LodePNG deflates.
unsigned chunkCrc(const unsigned char* bytes, size_t size) {
    return lodepng_crc32(bytes, size);
}

// Without it the general deflate takes a true-colour picture whole.
const ScanlineDeflate::BandDeflate kBandDeflate;

unsigned zlibCompress(std::vector<unsigned char>& out, const unsigned char* in, size_t inSize) {
    unsigned char* buffer = nullptr;
    size_t size = 0;
    const unsigned code =
        lodepng_zlib_compress(&buffer, &size, in, inSize, &lodepng_default_compress_settings);
    if (code == 0) {
        out.assign(buffer, buffer + size);
    }
    std::free(buffer);
    return code;
}
#endif

void putChunk(std::vector<unsigned char>& png, const char* type, const unsigned char* data,
              size_t length) {
    putBigEndian(png, static_cast<unsigned>(length));
    const size_t start = png.size();
    png.insert(png.end(), type, type + 4);
    png.insert(png.end(), data, data + length);
    putBigEndian(png, chunkCrc(&png[start], length + 4));
}

// The PNG around the scanlines: IHDR of the bit depth and colour type, PLTE and tRNS where
// given, the deflated scanlines, IEND.
unsigned writePng(std::vector<unsigned char>& png, const Scanlines& lines, unsigned width,
                  unsigned height, unsigned depth, unsigned char colourType,
                  const std::vector<unsigned char>& colours,
                  const std::vector<unsigned char>& transparency) {
    // A general deflate only pays for its tables on a large picture with many lines of their
    // own, and not on 8-bit indices, a logo's picture: its lines of a few runs go smaller and
    // three times faster in one pass. True colour takes it for a logo's band alone.
    std::vector<unsigned char> compressed;
    const size_t channels = colourType == kTrueColour            ? 3
                            : colourType == kTrueColourWithAlpha ? 4
                                                                 : 1;
    const size_t pixelBytes = std::max<size_t>(1, channels * depth / 8);
    const bool trueColour = colourType == kTrueColour || colourType == kTrueColourWithAlpha;
    if (lines.lineBytes <= ScanlineDeflate::kMaxLineBytes &&
        (lines.lineBytes * height < kLargeScanlines ||
         (colourType == kIndexedColour && depth == 8) || lines.bytes.size() < kLargeScanlines / 4 ||
         (trueColour && kBandDeflate))) {
        compressed = ScanlineDeflate::compress(
            lines.bytes.data(), lines.rows, lines.lineBytes, pixelBytes, trueColour,
            trueColour ? kBandDeflate : nullptr, lines.manyColours);
    } else {
        const std::vector<unsigned char> all = lines.expanded();
        if (const unsigned code = zlibCompress(compressed, all.data(), all.size())) {
            return code;
        }
    }
    static const unsigned char kSignature[8] = {137, 80, 78, 71, 13, 10, 26, 10};
    png.reserve(compressed.size() + 64 + colours.size() + transparency.size());
    png.assign(kSignature, kSignature + 8);

    std::vector<unsigned char> header;
    putBigEndian(header, width);
    putBigEndian(header, height);
    // Deflate, adaptive filtering, no interlace.
    header.insert(header.end(), {static_cast<unsigned char>(depth), colourType, 0, 0, 0});
    putChunk(png, "IHDR", header.data(), header.size());
    if (!colours.empty()) {
        putChunk(png, "PLTE", colours.data(), colours.size());
    }
    if (!transparency.empty()) {
        putChunk(png, "tRNS", transparency.data(), transparency.size());
    }
    putChunk(png, "IDAT", compressed.data(), compressed.size());
    putChunk(png, "IEND", nullptr, 0);
    return 0;
}

// A palette PNG written here rather than by LodePNG, which would take the indices without row
// padding and pad them again bit by bit.
unsigned encodePalette(std::vector<unsigned char>& png, const Palette& palette,
                       const Scanlines& lines, unsigned width, unsigned height) {
    std::vector<unsigned char> colours;
    std::vector<unsigned char> alphas;
    size_t opaqueFrom = 0;  // tRNS covers the colours up to the last that isn't opaque
    for (unsigned i = 0; i < palette.size; ++i) {
        unsigned char rgba[4];
        std::memcpy(rgba, &palette.colors[i], 4);
        colours.insert(colours.end(), rgba, rgba + 3);
        alphas.push_back(rgba[3]);
        if (rgba[3] != 255) {
            opaqueFrom = i + 1;
        }
    }
    alphas.resize(opaqueFrom);
    return writePng(png, lines, width, height, palette.bitDepth(), kIndexedColour, colours, alphas);
}

// The grey level, 0 or 1, of a colour that 1-bit grey holds: black or white, opaque or fully
// transparent; -1 for any other.
int greyLevel(unsigned color) {
    const unsigned rgb = color & 0xFFFFFF;
    const unsigned alpha = color >> 24;
    if ((rgb != 0 && rgb != 0xFFFFFF) || (alpha != 0 && alpha != 255)) {
        return -1;
    }
    return rgb != 0 ? 1 : 0;
}

// Whether the middle scanline of 1-bit indices is at least kWideMargins white (index 0) at its
// ends, left and right together.
constexpr double kWideMargins = 0.3;

bool wideMargins(const Scanlines& lines, unsigned height) {
    const size_t lineBytes = lines.lineBytes;
    const unsigned char* first = lines.lineOfRow(height / 2) + 1;
    const unsigned char* last = first + lineBytes - 2;
    size_t white = 0;
    for (const unsigned char* at = first; at <= last && *at == 0; ++at) {
        ++white;
    }
    for (const unsigned char* at = last; at > first && *at == 0 && white < lineBytes - 1; --at) {
        ++white;
    }
    return static_cast<double>(white) >= kWideMargins * static_cast<double>(lineBytes - 1);
}

// Black and white, the usual barcode, as 1-bit grey, as LodePNG would choose it: no palette
// chunk, and a transparent background as a grey key. False, with nothing changed, for other
// colours.
bool encodeGrey(std::vector<unsigned char>& png, const Palette& palette, Scanlines& lines,
                unsigned width, unsigned height, unsigned& code) {
    if (palette.size == 0) {
        return false;
    }
    int levels[2] = {greyLevel(palette.colors[0]), -1};
    if (palette.size == 2) {
        levels[1] = greyLevel(palette.colors[1]);
        if (levels[1] < 0 || levels[1] == levels[0]) {
            return false;
        }
    }
    if (levels[0] < 0) {
        return false;
    }
    const bool opaque[2] = {palette.colors[0] >> 24 == 255,
                            palette.size < 2 || palette.colors[1] >> 24 == 255};
    if (!opaque[0] && !opaque[1]) {
        return false;
    }
    // Grey makes white the set bit. A large white-first picture with wide white margins, as a
    // matrix symbol in its quiet zone has them, compresses better with white as zero, as the
    // palette has it: the margins then run on across the rows' filter bytes. Elsewhere the
    // palette chunk weighs more.
    if (levels[0] == 1 && lines.lineBytes * height >= kLargeScanlines &&
        wideMargins(lines, height)) {
        return false;
    }
    // Index 0 is white: every bit turns over, filter bytes aside, which turn back.
    if (levels[0] == 1) {
        unsigned char* bytes = lines.bytes.data();
        const size_t size = lines.bytes.size();
        for (size_t at = 0; at < size; ++at) {
            bytes[at] = static_cast<unsigned char>(~bytes[at]);
        }
        for (size_t row = 0; row < size; row += lines.lineBytes) {
            bytes[row] = static_cast<unsigned char>(~bytes[row]);
        }
    }
    std::vector<unsigned char> key;
    if (!opaque[0] || !opaque[1]) {
        key = {0, static_cast<unsigned char>(levels[opaque[0] ? 1 : 0])};
    }
    code = writePng(png, lines, width, height, 1, 0, {}, key);
    return true;
}

// PNG's Sub filter of a scanline, by its number.
constexpr unsigned char kFilterSub = 1;
constexpr unsigned kTrueColourDepth = 8;

// A row of RGBA pixels as the Sub filter has it with the first channels of each pixel: each
// byte less the same byte of the pixel before.
template <unsigned Channels>
void filterSub(const unsigned char* row, unsigned width, unsigned char* out) {
    for (unsigned c = 0; c < Channels; ++c) {
        out[c] = row[c];
    }
    for (unsigned x = 1; x < width; ++x) {
        for (unsigned c = 0; c < Channels; ++c) {
            out[Channels * x + c] = static_cast<unsigned char>(row[4 * x + c] - row[4 * x + c - 4]);
        }
    }
}

// Whether a row of RGBA pixels has more than two colours.
bool hasManyColours(const unsigned char* row, unsigned width) {
    unsigned colours[2] = {0, 0};
    unsigned count = 0;
    for (unsigned x = 0; x < width; ++x) {
        unsigned color;
        std::memcpy(&color, row + 4 * static_cast<size_t>(x), 4);
        if ((count > 0 && color == colours[0]) || (count > 1 && color == colours[1])) {
            continue;
        }
        if (count == 2) {
            return true;
        }
        colours[count++] = color;
    }
    return false;
}

// A picture of more colours than a palette holds, as a logo on a QR Code makes it: 8-bit RGB
// when every pixel is opaque, RGBA otherwise. Every row is filtered Sub, which leaves runs of
// one colour as zeros and a scaled logo's shades small, and which keeps a row like the one above
// a copy of its line, to be kept once.
unsigned encodeTrueColour(std::vector<unsigned char>& png, const unsigned char* pixels,
                          unsigned width, unsigned height, const Repeats& repeats) {
    const size_t rowBytes = 4 * static_cast<size_t>(width);
    bool opaque = true;
    for (unsigned y = 0; y < height && opaque; ++y) {
        const unsigned char* row = pixels + rowBytes * y;
        for (size_t alpha = 3; opaque && !repeats[y] && alpha < rowBytes; alpha += 4) {
            opaque = row[alpha] == 255;
        }
    }
    const unsigned channels = opaque ? 3 : 4;
    Scanlines lines(scanlineBytes(width, channels * kTrueColourDepth), repeats);
    for (unsigned y = 0; y < height; ++y) {
        unsigned char* out = lines.next(repeats[y]);
        if (!out) {
            continue;
        }
        lines.manyColours.push_back(hasManyColours(pixels + rowBytes * y, width));
        *out = kFilterSub;
        if (opaque) {
            filterSub<3>(pixels + rowBytes * y, width, out + 1);
        } else {
            filterSub<4>(pixels + rowBytes * y, width, out + 1);
        }
    }
    return writePng(png, lines, width, height, kTrueColourDepth,
                    opaque ? kTrueColour : kTrueColourWithAlpha, {}, {});
}

std::vector<unsigned char> encodePng(const unsigned char* pixels, unsigned width, unsigned height,
                                     const unsigned char* repeatedRows, int* error) {
    std::vector<unsigned char> png;
    unsigned code = kNoInput;
    if (pixels) {
        const Repeats repeats = findRepeats(pixels, width, height, repeatedRows);
        Palette palette;
        Scanlines lines(scanlineBytes(width, 1), repeats);
        if (packTwoColours(pixels, width, height, repeats, palette, lines)) {
            if (!encodeGrey(png, palette, lines, width, height, code)) {
                code = encodePalette(png, palette, lines, width, height);
            }
        } else if (Scanlines indices(scanlineBytes(width, 8), repeats);
                   indexColours(pixels, width, height, repeats, palette, indices)) {
            code = encodePalette(png, palette,
                                 packIndices(std::move(indices), width, palette.bitDepth()), width,
                                 height);
        } else {
            code = encodeTrueColour(png, pixels, width, height, repeats);
        }
    }
    if (code != 0) {
        png.clear();
    }
    if (error) {
        *error = static_cast<int>(code);
    }
    return png;
}

}  // namespace

std::vector<unsigned char> DM2PNG32(const unsigned char* pixels, unsigned int width,
                                    unsigned int height, unsigned int /*bytesPerPixel*/,
                                    int* error) {
    return encodePng(pixels, width, height, nullptr, error);
}

std::vector<unsigned char> DM2PNG32(const unsigned char* pixels, unsigned int width,
                                    unsigned int height,
                                    const std::vector<unsigned char>& repeatedRows, int* error) {
    return encodePng(pixels, width, height,
                     repeatedRows.size() == height ? repeatedRows.data() : nullptr, error);
}

}  // namespace BarcodeVelko
