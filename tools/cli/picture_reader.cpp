// Result::text() as UTF-8.
#define ZX_USE_UTF8

#include "tools/cli/picture_reader.h"
#include "tools/cli/dmtx_read.h"

#include <lodepng.h>

#include <algorithm>
#include <string>
#include <vector>

#include <ZXing/DecodeHints.h>
#include <ZXing/ImageView.h>
#include <ZXing/ReadBarcode.h>

namespace {

using ZXing::BarcodeFormat;

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
Grey onWhite(const unsigned char* png, size_t size) {
    std::vector<unsigned char> rgba;
    Grey grey;
    if (lodepng::decode(rgba, grey.width, grey.height, png, size) != 0) {
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

bool read(Grey& label, BarcodeFormat format, bool addOn, std::string& symbology,
          std::string& text) {
    const ZXing::ImageView view(label.pixels.data(), static_cast<int>(label.width),
                                static_cast<int>(label.height), ZXing::ImageFormat::Lum);
    ZXing::DecodeHints hints;
    hints.setFormats(format).setReturnCodabarStartEnd(true);
    hints.setTryCode39ExtendedMode(true);
    if (addOn) {
        hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Require);
    }
    // A quick look first; a clean picture reads at once.
    for (const bool harder : {false, true}) {
        hints.setTryHarder(harder).setTryRotate(harder);
        const ZXing::Result result = ZXing::ReadBarcode(view, hints);
        if (result.isValid()) {
            symbology = result.symbologyIdentifier();
            text = result.text();
            return true;
        }
    }
    if (format == BarcodeFormat::DataMatrix) {
        text = VelkoCli::readWithLibdmtx(label.pixels.data(), static_cast<int>(label.width),
                                         static_cast<int>(label.height), DmtxPack8bppK);
        return !text.empty();
    }
    return false;
}

}  // namespace

int velko_read_picture(const unsigned char* png, size_t size, const char* format,
                       unsigned quietModules, int addOn, VelkoTakeReading take, void* context) {
    // Nothing may leave through the C entry point, a failed allocation included.
    try {
        const BarcodeFormat symbology = ZXing::BarcodeFormatFromString(format);
        const Grey picture = onWhite(png, size);
        if (symbology == BarcodeFormat::None || picture.pixels.empty()) {
            return 0;
        }
        Grey label = withMargin(picture, quietModules * moduleWidth(picture));
        std::string identifier;
        std::string text;
        if (!read(label, symbology, addOn != 0, identifier, text)) {
            return 0;
        }
        take(context, identifier.c_str(), text.data(), text.size());
        return 1;
    } catch (...) {
        return 0;
    }
}
