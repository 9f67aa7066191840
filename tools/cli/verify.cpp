// Result::text() as UTF-8.
#define ZX_USE_UTF8

#include "tools/cli/verify.h"

#include <dmtx.h>
#include <lodepng.h>

#include <algorithm>
#include <iterator>

#include <ZXing/DecodeHints.h>
#include <ZXing/ImageView.h>
#include <ZXing/ReadBarcode.h>

#include "BarcodeLib/facade/code_types.h"
#include "tools/cli/expected_reading.h"

namespace VelkoCli {

namespace {

using ZXing::BarcodeFormat;

// How a code type is read back.
struct TypeReading {
    BarcodeFormat format;  // None: no reader at hand
    // The quiet zone, in modules, that the symbology's standard asks for on each side.
    unsigned quietModules;
    Meaning meaning;
    size_t length;  // digits of a GTIN, or of an add-on
    // Shorter readings than this the reader doesn't report at all.
    size_t shortest = 0;
};

constexpr BarcodeFormat kNoReader = BarcodeFormat::None;
constexpr size_t kShortestITF = 6;

// format, quiet zone in modules, meaning, length, shortest; a row a type in the host's numbering.
const TypeReading kReadings[] = {
    {BarcodeFormat::EAN8, 7, Meaning::Gtin, 8},                       // 0 EAN-8
    {BarcodeFormat::EAN13, 11, Meaning::Gtin, 13},                    // 1 EAN-13
    {BarcodeFormat::Code128, 10, Meaning::GS1, 0},                    // 2 EAN-128
    {BarcodeFormat::Code39, 10, Meaning::Text, 0},                    // 3 Code 39
    {BarcodeFormat::Code128, 10, Meaning::Text, 0},                   // 4 Code 128
    {kNoReader, 10, Meaning::Text, 0},                                // 5 Code 16K
    {BarcodeFormat::PDF417, 2, Meaning::Text, 0},                     // 6 PDF417
    {kNoReader, 10, Meaning::Text, 0},                                // 7 Standard 2 of 5
    {BarcodeFormat::ITF, 10, Meaning::Interleaved, 0, kShortestITF},  // 8 Interleaved 2 of 5
    {BarcodeFormat::Code39, 10, Meaning::Text, 0},                    // 9 Extended Code 39
    {BarcodeFormat::Code93, 10, Meaning::Text, 0},                    // 10 Code 93
    {BarcodeFormat::ITF, 10, Meaning::Gtin, 14},                      // 11 ITF-14
    {BarcodeFormat::DataBar, 1, Meaning::Gtin, 14},                   // 12 RSS-14
    {BarcodeFormat::Codabar, 10, Meaning::Text, 0},                   // 13 Codabar
    {BarcodeFormat::EAN13, 11, Meaning::AddOn, 2},                    // 14 EAN-13 + 2
    {BarcodeFormat::EAN13, 11, Meaning::AddOn, 5},                    // 15 EAN-13 + 5
    {BarcodeFormat::QRCode, 4, Meaning::Text, 0},                     // 16 QR Code
    {BarcodeFormat::DataBarExpanded, 1, Meaning::GS1, 0},             // 17 DataBar Expanded Stacked
    {BarcodeFormat::DataMatrix, 1, Meaning::Text, 0},                 // 18 Data Matrix 0
    {BarcodeFormat::DataMatrix, 1, Meaning::Text, 0},                 // 19 Data Matrix 1
    {BarcodeFormat::DataMatrix, 1, Meaning::Text, 0},                 // 20 Data Matrix 2
    {BarcodeFormat::DataMatrix, 1, Meaning::Text, 0},                 // 21 Data Matrix 3
    {BarcodeFormat::DataMatrix, 1, Meaning::Text, 0},                 // 22 Data Matrix 4
    {BarcodeFormat::DataMatrix, 1, Meaning::Text, 0},                 // 23 Data Matrix 5
    {BarcodeFormat::DataMatrix, 1, Meaning::GS1, 0},                  // 24 Data Matrix 6 (GS1)
};
static_assert(std::size(kReadings) == BarcodeVelko::kCodeTypeCount);

constexpr unsigned char kWhite = 255;
constexpr unsigned char kDarkBelow = 128;

// A grey picture, rows from the top without gaps.
struct Grey {
    unsigned width = 0;
    unsigned height = 0;
    std::vector<unsigned char> pixels;
    unsigned char at(unsigned x, unsigned y) const { return pixels[size_t(y) * width + x]; }
};

// The picture as it prints on white: alpha blends each pixel with the paper.
Grey onWhite(const std::vector<unsigned char>& png) {
    std::vector<unsigned char> rgba;
    Grey grey;
    if (lodepng::decode(rgba, grey.width, grey.height, png) != 0) {
        return Grey();
    }
    grey.pixels.resize(size_t(grey.width) * grey.height);
    for (size_t i = 0; i < grey.pixels.size(); ++i) {
        const unsigned char* p = &rgba[i * 4];
        const unsigned luma = (p[0] * 77u + p[1] * 150u + p[2] * 29u) >> 8;
        grey.pixels[i] = static_cast<unsigned char>((luma * p[3] + kWhite * (255u - p[3])) / 255u);
    }
    return grey;
}

// The narrowest dark run across the middle row and column: a module, or more.
unsigned moduleWidth(const Grey& grey) {
    unsigned narrowest = std::max(grey.width, grey.height);
    auto scan = [&](unsigned count, auto dark) {
        unsigned run = 0;
        for (unsigned i = 0; i <= count; ++i) {
            if (i < count && dark(i)) {
                ++run;
            } else if (run > 0) {
                narrowest = std::min(narrowest, run);
                run = 0;
            }
        }
    };
    scan(grey.width, [&](unsigned x) { return grey.at(x, grey.height / 2) < kDarkBelow; });
    scan(grey.height, [&](unsigned y) { return grey.at(grey.width / 2, y) < kDarkBelow; });
    return narrowest;
}

Grey withMargin(const Grey& grey, unsigned margin) {
    Grey label;
    label.width = grey.width + 2 * margin;
    label.height = grey.height + 2 * margin;
    label.pixels.assign(size_t(label.width) * label.height, kWhite);
    for (unsigned y = 0; y < grey.height; ++y) {
        std::copy_n(&grey.pixels[size_t(y) * grey.width], grey.width,
                    &label.pixels[size_t(y + margin) * label.width + margin]);
    }
    return label;
}

// zxing-cpp 1.4 can't read the largest Data Matrix size; libdmtx's own reader can.
std::string readWithLibdmtx(Grey& label) {
    DmtxImage* image = dmtxImageCreate(label.pixels.data(), static_cast<int>(label.width),
                                       static_cast<int>(label.height), DmtxPack8bppK);
    if (!image) {
        return std::string();
    }
    DmtxDecode* decode = dmtxDecodeCreate(image, 1);
    DmtxRegion* region = decode ? dmtxRegionFindNext(decode, nullptr) : nullptr;
    DmtxMessage* message = region ? dmtxDecodeMatrixRegion(decode, region, DmtxUndefined) : nullptr;
    std::string bytes;
    if (message) {
        bytes.assign(reinterpret_cast<const char*>(message->output), message->outputIdx);
        dmtxMessageDestroy(&message);
    }
    dmtxRegionDestroy(&region);
    dmtxDecodeDestroy(&decode);
    dmtxImageDestroy(&image);
    return bytes;
}

bool read(Grey& label, const TypeReading& reading, std::string& text) {
    const ZXing::ImageView view(label.pixels.data(), static_cast<int>(label.width),
                                static_cast<int>(label.height), ZXing::ImageFormat::Lum);
    ZXing::DecodeHints hints;
    hints.setFormats(reading.format).setReturnCodabarStartEnd(true);
    hints.setTryCode39ExtendedMode(true);
    if (reading.meaning == Meaning::AddOn) {
        hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Require);
    }
    // A quick look first; a clean picture reads at once.
    for (const bool harder : {false, true}) {
        hints.setTryHarder(harder).setTryRotate(harder);
        const ZXing::Result result = ZXing::ReadBarcode(view, hints);
        if (result.isValid()) {
            text = reading.meaning == Meaning::GS1
                       ? normalReading(result.symbologyIdentifier(), result.text())
                       : result.text();
            return true;
        }
    }
    if (reading.format == BarcodeFormat::DataMatrix) {
        text = readWithLibdmtx(label);
        return !text.empty();
    }
    return false;
}

}  // namespace

std::string Verification::describe() const {
    switch (verdict) {
        case Verdict::Clean:
            return "reads as asked";
        case Verdict::Unreadable:
            return "unreadable: no scanner reads it (expected " + expected + ")";
        case Verdict::Misread:
            return "reads " + read + ", expected " + expected;
        case Verdict::NotVerifiable:
            break;
    }
    return "not verifiable: " + why;
}

size_t gtinLength(unsigned codeType) {
    return codeType < std::size(kReadings) && kReadings[codeType].meaning == Meaning::Gtin
               ? kReadings[codeType].length
               : 0;
}

Verification verifyPicture(const std::vector<unsigned char>& png, unsigned codeType,
                           const std::string& value, bool whole) {
    Verification verification;
    if (codeType >= std::size(kReadings) || kReadings[codeType].format == kNoReader) {
        verification.verdict = Verdict::NotVerifiable;
        return verification;
    }
    const TypeReading& reading = kReadings[codeType];
    verification.expected = expectedReading(reading.meaning, value, reading.length, whole);
    if (verification.expected.size() < reading.shortest) {
        verification.verdict = Verdict::NotVerifiable;
        verification.why =
            "the reader takes no fewer than " + std::to_string(reading.shortest) + " characters";
        return verification;
    }
    const Grey picture = onWhite(png);
    if (picture.pixels.empty()) {
        return verification;
    }
    Grey label = withMargin(picture, reading.quietModules * moduleWidth(picture));
    if (!read(label, reading, verification.read)) {
        return verification;
    }
    verification.verdict =
        verification.read == verification.expected ? Verdict::Clean : Verdict::Misread;
    return verification;
}

}  // namespace VelkoCli
