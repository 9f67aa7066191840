// GetBarcode through our own host beside zint 2.11, case by case, in one process.
//
// Our side: one GetBarcode call of an object set up once (type, value, size), PNG bytes out.
// zint's side: ZBarcode_Encode and ZBarcode_Buffer on a symbol set up once, then the bitmap
// packed to one bit per pixel and written as a 1-bit palette PNG by LodePNG. zint 2.11 has no
// PNG in memory, and its file output would add the disk, so LodePNG stands in for it; the
// packing is counted on zint's side. zint is timed twice: with LodePNG's own deflate, and with
// libdeflate at the level our PNG step uses, so that the deflate alone decides nothing. zint's
// scale is the largest whole number of pixels per module that fits the case's width, its height in
// modules fills the case's height, and its human-readable text stays on, as ours does.
//
// Repetitions alternate between the two sides; each figure is the least thread CPU time of 31.
// Each side's first PNG is decoded once and read by zxing-cpp, so that neither side wins by
// drawing something else. Prints the ratio ours / zint per case, and our PNG's size against
// LodePNG's own encoding of the same pixels.

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <ZXing/ReadBarcode.h>
#include <libdeflate.h>
#include <lodepng.h>
#include <zint.h>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;

namespace {

constexpr int kRepetitions = 31;

struct Case {
    const char* name;
    int ourType;
    int zintType;
    std::string value;
    int width;
    int height;
};

double threadMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// A shipping text of that many bytes; at level M 20 take version 2, 200 version 10, 2300
// version 40.
std::string shippingText(size_t bytes) {
    static const char kText[] = "Ship to: 221B Baker Street, London NW1 6XE; ";
    std::string text;
    for (size_t i = 0; i < bytes; ++i) {
        text += kText[i % (sizeof kText - 1)];
    }
    return text;
}

// libdeflate at the levels of our PNG step: 6 below 32 KB of scanlines, 7 from there.
unsigned libdeflateZlib(unsigned char** out, size_t* outSize, const unsigned char* in,
                        size_t inSize, const LodePNGCompressSettings*) {
    static libdeflate_compressor* const small = libdeflate_alloc_compressor(6);
    static libdeflate_compressor* const large = libdeflate_alloc_compressor(7);
    libdeflate_compressor* compressor = inSize < 32 * 1024 ? small : large;
    const size_t bound = libdeflate_zlib_compress_bound(compressor, inSize);
    *out = static_cast<unsigned char*>(std::malloc(bound));
    *outSize = libdeflate_zlib_compress(compressor, in, inSize, *out, bound);
    return *outSize == 0 ? 111 : 0;
}

class ZintSide {
public:
    ZintSide(const Case& c) : symbol(ZBarcode_Create(), &ZBarcode_Delete) {
        symbol->symbology = c.zintType;
        symbol->output_options |= BARCODE_QUIET_ZONES;
        if (c.zintType == BARCODE_QRCODE) {
            symbol->option_1 = 2;  // level M, as ours by default
        }
        // One pixel per module first, to learn the symbol's size.
        symbol->scale = 0.5f;
        encode(c.value);
        const int unitWidth = std::max(1, symbol->bitmap_width);
        const int pixelsPerModule = std::max(1, c.width / unitWidth);
        if (c.zintType != BARCODE_QRCODE) {
            symbol->height = static_cast<float>(std::max(1, c.height / pixelsPerModule - 10));
        }
        symbol->scale = 0.5f * static_cast<float>(pixelsPerModule);
        encode(c.value);
    }

    bool encode(const std::string& value) {
        // Without clearing, a second encoding of the same symbol builds on the first.
        ZBarcode_Clear(symbol.get());
        const unsigned char* data = reinterpret_cast<const unsigned char*>(value.data());
        return ZBarcode_Encode(symbol.get(), data, static_cast<int>(value.size())) < ZINT_ERROR &&
               ZBarcode_Buffer(symbol.get(), 0) < ZINT_ERROR;
    }

    std::vector<unsigned char> png(const std::string& value, bool withLibdeflate) {
        std::vector<unsigned char> out;
        if (!encode(value)) {
            return out;
        }
        const unsigned width = static_cast<unsigned>(symbol->bitmap_width);
        const unsigned height = static_cast<unsigned>(symbol->bitmap_height);
        // LodePNG takes sub-byte pixels packed without padding at the row ends.
        packed.assign((static_cast<size_t>(width) * height + 7) / 8, 0);
        const unsigned char* rgb = reinterpret_cast<const unsigned char*>(symbol->bitmap);
        const size_t pixels = static_cast<size_t>(width) * height;
        for (size_t i = 0; i < pixels; ++i, rgb += 3) {
            if (rgb[0] < 128) {
                packed[i / 8] |= static_cast<unsigned char>(0x80u >> (i % 8));
            }
        }
        lodepng::State state;
        state.info_raw.colortype = LCT_PALETTE;
        state.info_raw.bitdepth = 1;
        state.info_png.color.colortype = LCT_PALETTE;
        state.info_png.color.bitdepth = 1;
        state.encoder.auto_convert = 0;
        if (withLibdeflate) {
            state.encoder.zlibsettings.custom_zlib = libdeflateZlib;
        }
        for (LodePNGColorMode* mode : {&state.info_raw, &state.info_png.color}) {
            lodepng_palette_add(mode, 255, 255, 255, 255);
            lodepng_palette_add(mode, 0, 0, 0, 255);
        }
        lodepng::encode(out, packed.data(), width, height, state);
        return out;
    }

private:
    std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> symbol;
    std::vector<unsigned char> packed;
};

// Whether zxing-cpp reads a symbol from PNG bytes.
bool read(const std::vector<unsigned char>& png) {
    std::vector<unsigned char> rgba;
    unsigned width = 0;
    unsigned height = 0;
    if (png.empty() || lodepng::decode(rgba, width, height, png) != 0) {
        return false;
    }
    const ZXing::ImageView image(rgba.data(), static_cast<int>(width), static_cast<int>(height),
                                 ZXing::ImageFormat::RGBX);
    ZXing::DecodeHints hints;
    hints.setTryHarder(true);
    return ZXing::ReadBarcode(image, hints).isValid();
}

// Our PNG's size against LodePNG's own encoding of the same pixels, as the PNG step made it
// before it was rewritten; 0 when the bytes don't decode.
double sizeAgainstLodePng(const std::vector<unsigned char>& png) {
    std::vector<unsigned char> rgba;
    unsigned width = 0;
    unsigned height = 0;
    std::vector<unsigned char> plain;
    if (png.empty() || lodepng::decode(rgba, width, height, png) != 0 ||
        lodepng::encode(plain, rgba, width, height) != 0) {
        return 0;
    }
    return static_cast<double>(png.size()) / static_cast<double>(plain.size());
}

}  // namespace

int main() {
    const ExtensionLibrary library(ExtensionLibrary::defaultPath());
    if (!library.loaded()) {
        std::fprintf(stderr, "velko-bench-compare: %s\n", library.error().c_str());
        return 2;
    }
    const std::vector<Case> cases = {
        {"EAN-13 300x150", 1, BARCODE_EANX, "460123456789", 300, 150},
        {"EAN-13 1000x500", 1, BARCODE_EANX, "460123456789", 1000, 500},
        {"Code 39 300x150", 3, BARCODE_CODE39, "CODE39-12345", 300, 150},
        {"Code 39 1000x500", 3, BARCODE_CODE39, "CODE39-12345", 1000, 500},
        {"Code 128 1000x500", 4, BARCODE_CODE128, "Code128-1234567890", 1000, 500},
        {"QR version 2 300x300", 16, BARCODE_QRCODE, shippingText(20), 300, 300},
        {"QR version 2 1000x1000", 16, BARCODE_QRCODE, shippingText(20), 1000, 1000},
        {"QR version 10 1000x1000", 16, BARCODE_QRCODE, shippingText(200), 1000, 1000},
        {"QR version 40 1000x1000", 16, BARCODE_QRCODE, shippingText(2300), 1000, 1000},
    };
    std::printf("%-24s %11s %11s %12s %6s %12s %6s  %-9s %s\n", "case", "GetBarcode", "+ value",
                "zint+LodePNG", "ratio", "zint+libdefl", "ratio", "bytes/Lode", "read back");
    int status = 0;
    for (const Case& c : cases) {
        ExtensionSession session(library);
        session.set("CodeAuto", false);
        session.set("CodeType", c.ourType);
        session.set("Width", c.width);
        session.set("Height", c.height);
        session.set("CodeValue", c.value);
        const long valueIndex = session.propIndex("CodeValue");
        ZintSide zint(c);

        const std::vector<unsigned char> first = session.getBarcode();
        const bool oursRead = read(first);
        const bool zintRead = read(zint.png(c.value, false)) && read(zint.png(c.value, true));
        status |= oursRead && zintRead ? 0 : 1;

        double ours = 1e300;
        double oursWritten = 1e300;
        double theirs = 1e300;
        double theirsFast = 1e300;
        for (int i = 0; i < kRepetitions; ++i) {
            double start = threadMicroseconds();
            std::vector<unsigned char> png = session.getBarcode();
            ours = std::min(ours, threadMicroseconds() - start);
            start = threadMicroseconds();
            session.set(valueIndex, c.value);
            png = session.getBarcode();
            oursWritten = std::min(oursWritten, threadMicroseconds() - start);
            start = threadMicroseconds();
            png = zint.png(c.value, false);
            theirs = std::min(theirs, threadMicroseconds() - start);
            start = threadMicroseconds();
            png = zint.png(c.value, true);
            theirsFast = std::min(theirsFast, threadMicroseconds() - start);
        }
        // The ratios take the slower of ours: a new value written, then its picture.
        const double ours2 = std::max(ours, oursWritten);
        std::printf("%-24s %8.0f us %8.0f us %9.0f us %6.2f %9.0f us %6.2f  %9.2f  %s / %s\n",
                    c.name, ours, oursWritten, theirs, ours2 / theirs, theirsFast,
                    ours2 / theirsFast, sizeAgainstLodePng(first), oursRead ? "yes" : "NO",
                    zintRead ? "yes" : "NO");
    }
    return status;
}
