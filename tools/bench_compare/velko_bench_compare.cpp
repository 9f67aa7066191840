// GetBarcode through our own host beside zint 2.11's own PNG output, for every code type at its
// demo size and at a large one, case by case in one process.
//
// Our side: the picture of a value written before, and a new value written then its picture, on
// an object set up once (type, size); PNG bytes out. The new value is the case's, written after
// another of the same length (its last character changed), so that it is generated anew. The
// ratio takes the slower of the two.
//
// zint's side: ZBarcode_Clear and ZBarcode_Encode_and_Print, zint's own PNG writer (libpng) to
// a file on /dev/shm, less the cost of writing that many bytes to a file there, which is timed
// in the same run. The floor column is zint's raster (ZBarcode_Buffer) packed to one bit a pixel
// and written by LodePNG with libdeflate at the level of our PNG step: what a PNG of zint's
// pixels costs at the least.
//
// zint draws the same symbology and data (the demo value of our code type, in zint's form) at
// about the same pixel size: the largest whole number of pixels per module whose picture is no
// wider than ours (no higher either, for a matrix symbol), for linear and stacked symbols a bar
// height that brings the picture to our height, and margins (whitespace) that bring it to our
// width, and for a matrix symbol our height, to a module. Both pictures' sizes are printed.
//
// Repetitions alternate between the sides; each figure is the least thread CPU time of 21.
// Arguments, for a profile: the beginning of the cases' names to run, and the repetitions. Each
// side's first PNG is read back by zxing-cpp where it reads the symbology, so that neither side
// wins by drawing something else.

#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

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

#include "BarcodeLib/facade/code_types.h"
#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;

namespace {

constexpr int kRepetitions = 21;
constexpr int kLargeLinearWidth = 1000;
constexpr int kLargeLinearHeight = 500;
constexpr int kLargeMatrixSide = 1000;
// zint 2.11 draws 2 pixels a module at scale 1.
constexpr float kScalePerPixel = 0.5f;

enum class Shape { Linear, Stacked, Matrix };

struct CodeType {
    int ourType;
    const char* name;
    int zintType;
    Shape shape;
    // zint's input mode and options, where our symbol needs them to match.
    int inputMode;
    int option2;
    // The data in zint's form; empty: our demo value as it is. A %s is our demo value.
    const char* zintData;
    // Our demo value; X12 Data Matrix takes the gallery's, as the demo value holds a "<".
    const char* ourValue;
};

constexpr int kGs1 = GS1_MODE | GS1PARENS_MODE;

// The symbologies; each is drawn at its demo size from the code-type table and at a large one.
const CodeType kTypes[] = {
    {0, "EAN-8", BARCODE_EANX, Shape::Linear, 0, 0, "", "0123456"},
    {1, "EAN-13", BARCODE_EANX, Shape::Linear, 0, 0, "", "123456789012"},
    {2, "EAN-128", BARCODE_GS1_128, Shape::Linear, kGs1, 0, "", "(11)040509(20)12"},
    {3, "Code 39", BARCODE_CODE39, Shape::Linear, 0, 0, "", "CODE39"},
    {4, "Code 128", BARCODE_CODE128, Shape::Linear, 0, 0, "", "Code128 example"},
    {5, "Code 16K", BARCODE_CODE16K, Shape::Stacked, 0, 0, "", "Code16k"},
    {6, "PDF417", BARCODE_PDF417, Shape::Stacked, 0, 0, "", "PDF417 example"},
    {7, "Standard 2 of 5", BARCODE_C25IND, Shape::Linear, 0, 1, "", "12345"},
    {8, "Interleaved 2 of 5", BARCODE_C25INTER, Shape::Linear, 0, 1, "", "12345"},
    {9, "Code 39 extended", BARCODE_EXCODE39, Shape::Linear, 0, 0, "", "Code39"},
    {10, "Code 93", BARCODE_CODE93, Shape::Linear, 0, 0, "", "Code93"},
    {11, "ITF-14", BARCODE_ITF14, Shape::Linear, 0, 0, "", "1123456789012"},
    {12, "RSS-14", BARCODE_DBAR_OMN, Shape::Linear, 0, 0, "", "1234567890128"},
    {13, "Codabar", BARCODE_CODABAR, Shape::Linear, 0, 0, "", "A12345B"},
    {14, "EAN-13 + 2", BARCODE_EANX, Shape::Linear, 0, 0, "123456789012+34", "123456789012834"},
    {15, "EAN-13 + 5", BARCODE_EANX, Shape::Linear, 0, 0, "123456789012+12345",
     "123456789012812345"},
    {16, "QR Code", BARCODE_QRCODE, Shape::Matrix, 0, 0, "", "QR example"},
    {17, "DataBar Exp. Stacked", BARCODE_DBAR_EXPSTK, Shape::Stacked, kGs1, 0, "", "(10)12A"},
    {18, "Data Matrix ASCII", BARCODE_DATAMATRIX, Shape::Matrix, 0, 0, "", "30Q324343430794<OQQ"},
    {19, "Data Matrix Base256", BARCODE_DATAMATRIX, Shape::Matrix, 0, 0, "", "30Q324343430794<OQQ"},
    {20, "Data Matrix Text", BARCODE_DATAMATRIX, Shape::Matrix, 0, 0, "", "30Q324343430794<OQQ"},
    {21, "Data Matrix C40", BARCODE_DATAMATRIX, Shape::Matrix, 0, 0, "", "30Q324343430794<OQQ"},
    {22, "Data Matrix X12", BARCODE_DATAMATRIX, Shape::Matrix, 0, 0, "", "30Q324343430794>OQQ"},
    {23, "Data Matrix EDIFACT", BARCODE_DATAMATRIX, Shape::Matrix, 0, 0, "", "30Q324343430794<OQQ"},
    {24, "GS1 Data Matrix", BARCODE_DATAMATRIX, Shape::Matrix, kGs1, 0, "",
     "(01)04600822901507(11)161109(30)2434"},
};

struct Case {
    const CodeType* type;
    int width;
    int height;
    std::string ourValue;
    std::string zintValue;
};

double threadMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
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

// The value with its last character changed within its kind: a digit, a capital or a small
// letter, so that the symbology takes it as it takes the value.
std::string alternate(std::string value) {
    char& last = value.back();
    if (last >= '0' && last <= '9') {
        last = static_cast<char>('0' + (last - '0' + 1) % 10);
    } else if (last >= 'A' && last <= 'Z') {
        last = static_cast<char>('A' + (last - 'A' + 1) % 26);
    } else if (last >= 'a' && last <= 'z') {
        last = static_cast<char>('a' + (last - 'a' + 1) % 26);
    }
    return value;
}

std::vector<unsigned char> readFile(const std::string& path) {
    std::vector<unsigned char> bytes;
    if (FILE* file = std::fopen(path.c_str(), "rb")) {
        unsigned char buffer[65536];
        size_t got = 0;
        while ((got = std::fread(buffer, 1, sizeof buffer, file)) > 0) {
            bytes.insert(bytes.end(), buffer, buffer + got);
        }
        std::fclose(file);
    }
    return bytes;
}

// What zint's PNG path pays for its file beyond the PNG: stdio writing that many bytes.
void writeFile(const std::string& path, const std::vector<unsigned char>& bytes) {
    if (FILE* file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
}

class ZintSide {
public:
    ZintSide(const Case& c, const std::string& outfile)
        : symbol(ZBarcode_Create(), &ZBarcode_Delete), value(c.zintValue) {
        symbol->symbology = c.type->zintType;
        symbol->input_mode = c.type->inputMode;
        symbol->option_2 = c.type->option2;
        symbol->output_options |= BARCODE_QUIET_ZONES;
        if (c.type->zintType == BARCODE_QRCODE) {
            symbol->option_1 = 2;  // level M, as ours by default
        } else if (c.type->zintType == BARCODE_DATAMATRIX) {
            symbol->option_3 = DM_SQUARE;  // as ours
        }
        std::snprintf(symbol->outfile, sizeof symbol->outfile, "%s", outfile.c_str());
        // One pixel per module first, to learn the symbol's size.
        symbol->scale = kScalePerPixel;
        buffer();
        const int unitWidth = std::max(1, symbol->bitmap_width);
        const int unitHeight = std::max(1, symbol->bitmap_height);
        int perModule = std::max(1, c.width / unitWidth);
        if (c.type->shape == Shape::Matrix) {
            perModule = std::max(1, std::min(perModule, c.height / unitHeight));
        }
        symbol->scale = kScalePerPixel * static_cast<float>(perModule);
        if (c.type->shape != Shape::Matrix) {
            // The text and the margins stay as they are; the bars take up the rest.
            const float barHeight = symbol->height;
            buffer();
            const float extra = static_cast<float>(c.height - symbol->bitmap_height) /
                                static_cast<float>(perModule);
            symbol->height = std::max(1.0f, barHeight + extra);
        }
        // Our picture is as large as asked, the symbol in its middle: zint's margins make up the
        // difference, to a module.
        buffer();
        symbol->whitespace_width += std::max(0, c.width - symbol->bitmap_width) / (2 * perModule);
        if (c.type->shape == Shape::Matrix) {
            symbol->whitespace_height +=
                std::max(0, c.height - symbol->bitmap_height) / (2 * perModule);
        }
        buffer();
    }

    bool buffer() {
        // Without clearing, a second encoding of the same symbol builds on the first.
        ZBarcode_Clear(symbol.get());
        return ZBarcode_Encode(symbol.get(), data(), length()) < ZINT_ERROR &&
               ZBarcode_Buffer(symbol.get(), 0) < ZINT_ERROR;
    }

    // zint's own PNG path, file included.
    bool print() {
        ZBarcode_Clear(symbol.get());
        return ZBarcode_Encode_and_Print(symbol.get(), data(), length(), 0) < ZINT_ERROR;
    }

    // The raster as a 1-bit PNG by LodePNG.
    std::vector<unsigned char> floorPng() {
        std::vector<unsigned char> out;
        if (!buffer()) {
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
        state.encoder.zlibsettings.custom_zlib = libdeflateZlib;
        for (LodePNGColorMode* mode : {&state.info_raw, &state.info_png.color}) {
            lodepng_palette_add(mode, 255, 255, 255, 255);
            lodepng_palette_add(mode, 0, 0, 0, 255);
        }
        lodepng::encode(out, packed.data(), width, height, state);
        return out;
    }

    int width() const { return symbol->bitmap_width; }
    int height() const { return symbol->bitmap_height; }

private:
    const unsigned char* data() const {
        return reinterpret_cast<const unsigned char*>(value.data());
    }
    int length() const { return static_cast<int>(value.size()); }

    std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> symbol;
    std::string value;
    std::vector<unsigned char> packed;
};

// Whether zxing-cpp reads a symbol from PNG bytes; the size of the picture in width and height.
// The picture is read inside a white margin: our Data Matrix has no quiet zone of its own.
bool read(const std::vector<unsigned char>& png, unsigned& width, unsigned& height) {
    constexpr unsigned kMargin = 16;
    std::vector<unsigned char> rgba;
    if (png.empty() || lodepng::decode(rgba, width, height, png) != 0) {
        return false;
    }
    const unsigned outerWidth = width + 2 * kMargin;
    std::vector<unsigned char> framed(4ULL * outerWidth * (height + 2 * kMargin), 255);
    for (unsigned y = 0; y < height; ++y) {
        std::copy_n(&rgba[4ULL * width * y], 4ULL * width,
                    &framed[4ULL * (outerWidth * (y + kMargin) + kMargin)]);
    }
    const ZXing::ImageView image(framed.data(), static_cast<int>(outerWidth),
                                 static_cast<int>(height + 2 * kMargin), ZXing::ImageFormat::RGBX);
    ZXing::DecodeHints hints;
    hints.setTryHarder(true);
    return ZXing::ReadBarcode(image, hints).isValid();
}

// Our PNG's size against LodePNG's own encoding of the same pixels; 0 when the bytes don't
// decode.
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

std::vector<Case> makeCases() {
    std::vector<Case> cases;
    for (const CodeType& type : kTypes) {
        const BarcodeVelko::CodeTypeRow& row = BarcodeVelko::g_codeTypes[type.ourType];
        Case c{&type, static_cast<int>(row.demoWidth), static_cast<int>(row.demoHeight),
               type.ourValue, type.zintData};
        if (c.zintValue.empty()) {
            c.zintValue = c.ourValue;
        }
        cases.push_back(c);
        const bool matrix = type.shape == Shape::Matrix;
        c.width = matrix ? kLargeMatrixSide : kLargeLinearWidth;
        c.height = matrix ? kLargeMatrixSide : kLargeLinearHeight;
        cases.push_back(c);
    }
    return cases;
}

// The symbologies that zxing-cpp 1.4 reads.
bool zxingReads(int zintType) {
    switch (zintType) {
        case BARCODE_CODE16K:
        case BARCODE_C25IND:
        case BARCODE_DBAR_EXPSTK:
            return false;
        default:
            return true;
    }
}

}  // namespace

int main(int argc, char** argv) {
    // For a profile: only the cases whose name begins so, as often as asked.
    const std::string only = argc > 1 ? argv[1] : "";
    const int repetitions = argc > 2 ? std::max(1, std::atoi(argv[2])) : kRepetitions;
    const ExtensionLibrary library(ExtensionLibrary::defaultPath());
    if (!library.loaded()) {
        std::fprintf(stderr, "velko-bench-compare: %s\n", library.error().c_str());
        return 2;
    }
    const std::string folder = "/dev/shm/velko-bench-compare-" + std::to_string(getpid());
    mkdir(folder.c_str(), 0700);
    const std::string zintFile = folder + "/zint.png";
    const std::string plainFile = folder + "/plain.png";

    std::printf("%-21s %9s %9s %9s %9s %9s %7s %6s %9s %6s  %s\n", "case", "ours px", "zint px",
                "GetBarc.", "+ value", "zint PNG", "write", "ratio", "floor", "b/Lode",
                "read ours/zint");
    int status = 0;
    for (const Case& c : makeCases()) {
        const std::string name =
            std::string(c.type->name) +
            (c.width > static_cast<int>(BarcodeVelko::g_codeTypes[c.type->ourType].demoWidth) ? " L"
                                                                                              : "");
        if (name.compare(0, only.size(), only) != 0) {
            continue;
        }
        ExtensionSession session(library);
        session.set("CodeAuto", false);
        session.set("CodeType", c.type->ourType);
        session.set("Width", c.width);
        session.set("Height", c.height);
        session.set("CodeValue", c.ourValue);
        const long valueIndex = session.propIndex("CodeValue");
        const std::string other = alternate(c.ourValue);
        ZintSide zint(c, zintFile);

        const std::vector<unsigned char> first = session.getBarcode();
        zint.print();
        const std::vector<unsigned char> zintPng = readFile(zintFile);
        unsigned ourWidth = 0;
        unsigned ourHeight = 0;
        unsigned zintWidth = 0;
        unsigned zintHeight = 0;
        const bool oursRead = read(first, ourWidth, ourHeight);
        const bool zintRead = read(zintPng, zintWidth, zintHeight);
        const bool readable = zxingReads(c.type->zintType);
        // Ours must read wherever zint's does.
        status |= readable && zintRead && !oursRead ? 1 : 0;

        double ours = 1e300;
        double oursWritten = 1e300;
        double theirs = 1e300;
        double write = 1e300;
        double floor = 1e300;
        for (int i = 0; i < repetitions; ++i) {
            double start = threadMicroseconds();
            std::vector<unsigned char> png = session.getBarcode();
            ours = std::min(ours, threadMicroseconds() - start);
            session.set(valueIndex, other);
            start = threadMicroseconds();
            session.set(valueIndex, c.ourValue);
            png = session.getBarcode();
            oursWritten = std::min(oursWritten, threadMicroseconds() - start);
            start = threadMicroseconds();
            zint.print();
            theirs = std::min(theirs, threadMicroseconds() - start);
            start = threadMicroseconds();
            writeFile(plainFile, zintPng);
            write = std::min(write, threadMicroseconds() - start);
            start = threadMicroseconds();
            png = zint.floorPng();
            floor = std::min(floor, threadMicroseconds() - start);
        }
        const double zintNet = std::max(1.0, theirs - write);
        const double slower = std::max(ours, oursWritten);
        const std::string ourSize = std::to_string(ourWidth) + "x" + std::to_string(ourHeight);
        const std::string zintSize = std::to_string(zintWidth) + "x" + std::to_string(zintHeight);
        std::printf(
            "%-21s %9s %9s %6.0f us %6.0f us %6.0f us %4.0f us %6.2f %6.0f us %6.2f  %s / %s\n",
            name.c_str(), ourSize.c_str(), zintSize.c_str(), ours, oursWritten, zintNet, write,
            slower / zintNet, floor, sizeAgainstLodePng(first),
            readable ? (oursRead ? "yes" : "NO") : "-", readable ? (zintRead ? "yes" : "NO") : "-");
        std::fflush(stdout);
    }
    std::remove(zintFile.c_str());
    std::remove(plainFile.c_str());
    rmdir(folder.c_str());
    return status;
}
