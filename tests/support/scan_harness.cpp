// Result::text() as UTF-8.
#define ZX_USE_UTF8

#include "tests/support/scan_harness.h"

#include <gtest/gtest.h>
#include <lodepng.h>

#include <algorithm>

#include <ZXing/DecodeHints.h>
#include <ZXing/ImageView.h>
#include <ZXing/ReadBarcode.h>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "BarcodeLib/png/dm2png32.h"

namespace VelkoTest {

unsigned Picture::pixel(unsigned x, unsigned y) const {
    if (x >= width || y >= height) {
        return 0;
    }
    const unsigned char* p = &rgba[(static_cast<size_t>(y) * width + x) * 4];
    return p[0] | p[1] << 8 | p[2] << 16 | static_cast<unsigned>(p[3]) << 24;
}

Box boxOf(const Picture& picture, const std::function<bool(unsigned pixel)>& pick) {
    Box box = {picture.width, picture.height, 0, 0};
    for (unsigned y = 0; y < picture.height; ++y) {
        for (unsigned x = 0; x < picture.width; ++x) {
            if (pick(picture.pixel(x, y))) {
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
            }
        }
    }
    return box.right == 0 ? Box{0, 0, 0, 0} : box;
}

Picture decodePng(const std::vector<unsigned char>& png) {
    Picture picture;
    if (lodepng::decode(picture.rgba, picture.width, picture.height, png) != 0) {
        return Picture();
    }
    return picture;
}

Picture render(BarcodeVelko::BarcodeFacade2& facade) {
    const PImage image = facade.draw();
    return decodePng(BarcodeVelko::DM2PNG32(image.pixelData(), image.width(), image.height(),
                                            image.bytesPerPixel(), nullptr));
}

void setUp(BarcodeVelko::BarcodeFacade2& facade, unsigned type, unsigned width, unsigned height,
           unsigned rotation) {
    facade.setCodeAuto(false);
    facade.setCodeType(type);
    facade.setColumnCount(width);
    facade.setRowCount(height);
    facade.setCanvasRotation(rotation);
}

Picture draw(unsigned type, const std::wstring& value, unsigned width, unsigned height,
             unsigned rotation) {
    BarcodeVelko::BarcodeFacade2 facade;
    setUp(facade, type, width, height, rotation);
    facade.setCodeValue(value.c_str());
    Picture picture = render(facade);
    EXPECT_EQ(facade.getCodeType(), type);
    EXPECT_EQ(facade.getLastError().code(), 0) << narrow(value);
    return picture;
}

Reading readSymbol(const Picture& picture, ZXing::BarcodeFormat format, ZXing::DecodeHints hints) {
    if (picture.width == 0 || picture.height == 0) {
        return {};
    }
    const ZXing::ImageView view(picture.rgba.data(), static_cast<int>(picture.width),
                                static_cast<int>(picture.height), ZXing::ImageFormat::RGBX);
    hints.setFormats(format).setTryHarder(true).setTryRotate(true);
    const ZXing::Result result = ZXing::ReadBarcode(view, hints);
    if (!result.isValid()) {
        return {};
    }
    return {result.text(), std::string(result.bytes().begin(), result.bytes().end()),
            result.symbologyIdentifier()};
}

std::string scan(const Picture& picture, ZXing::BarcodeFormat format, ZXing::DecodeHints hints) {
    return readSymbol(picture, format, hints).text;
}

Picture rotate90(const Picture& picture) {
    Picture turned;
    turned.width = picture.height;
    turned.height = picture.width;
    turned.rgba.resize(picture.rgba.size());
    for (unsigned y = 0; y < picture.height; ++y) {
        for (unsigned x = 0; x < picture.width; ++x) {
            const size_t from = (static_cast<size_t>(y) * picture.width + x) * 4;
            const size_t to = (static_cast<size_t>(x) * turned.width + (turned.width - 1 - y)) * 4;
            std::copy_n(&picture.rgba[from], 4, &turned.rgba[to]);
        }
    }
    return turned;
}

}  // namespace VelkoTest
