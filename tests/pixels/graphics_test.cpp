#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "layer/graphics/p_color.h"
#include "layer/graphics/p_image.h"
#include "layer/graphics/p_paint_device.h"
#include "layer/graphics/p_paint_device_alias.h"
#include "layer/graphics/p_painter.h"
#include "layer/graphics/p_rect.h"

namespace {

constexpr unsigned kWhite = 0xFFFFFFFF;
constexpr unsigned kBlack = 0xFF000000;

PColor colorOf(unsigned value) {
    return PColor(value, PColor::kNative);
}

TEST(PColorTest, BytesAndFormats) {
    const PColor color(1, 2, 3, 4);
    EXPECT_EQ(color.value(PColor::kNative), 0x04010203u);
    EXPECT_EQ(color.value(PColor::kRgb), 0x00010203u);
    EXPECT_EQ(color.value(PColor::kReversed), 0x03020104u);
    EXPECT_EQ(color.r(), 1);
    EXPECT_EQ(color.a(), 4);
    EXPECT_EQ(PColor(0x80102030, PColor::kNative).inverted().value(), 0x80EFDFCFu);
    EXPECT_EQ(PColor(10, 20, 31, 7).grayScaled().value(), 0x07141414u);
    EXPECT_EQ(PColor::fromGray(0x42, PColor::kNative), 0xFF424242u);
    EXPECT_EQ(PColor::color(0x11223344, PColor::kNative, PColor::kReversed), 0x44332211u);
}

TEST(PImageTest, SidesAreCutAtTheLimitAndEmptySizesGiveAnInvalidImage) {
    struct Case {
        unsigned width, height;
        unsigned expectedWidth, expectedHeight, expectedPitch, expectedBytesPerPixel;
    };
    for (const Case& c : std::vector<Case>{{9000, 100, 8000, 100, 32000, 4},
                                           {100, 9000, 100, 8000, 400, 4},
                                           {0, 10, 0, 0, 0, 0},
                                           {10, 0, 0, 0, 0, 0}}) {
        const PImage image(c.width, c.height, colorOf(kWhite));
        EXPECT_EQ(image.width(), c.expectedWidth) << c.width << "x" << c.height;
        EXPECT_EQ(image.height(), c.expectedHeight) << c.width << "x" << c.height;
        EXPECT_EQ(image.pitch(), c.expectedPitch) << c.width << "x" << c.height;
        EXPECT_EQ(image.bytesPerPixel(), c.expectedBytesPerPixel) << c.width << "x" << c.height;
        EXPECT_EQ(image.isValid(), c.expectedWidth != 0);
    }
}

TEST(PImageTest, PixelsAreLittleEndianAndOutsideIsIgnored) {
    PImage image(3, 2, colorOf(0x11223344));
    image.setPixel(2, 1, 0xAABBCCDD);
    const unsigned char* bytes = static_cast<const PImage&>(image).pixelData();
    const unsigned char expected[] = {0xDD, 0xCC, 0xBB, 0xAA};
    EXPECT_TRUE(std::equal(expected, expected + 4, bytes + 1 * 12 + 2 * 4));
    EXPECT_EQ(image.getPixel(0, 0), 0x11223344u);

    for (const auto& [x, y] : std::vector<std::pair<int, int>>{{-1, 0}, {0, -1}, {3, 0}, {0, 2}}) {
        image.setPixel(x, y, 0);
        EXPECT_EQ(image.getPixel(x, y), 0u);
    }
    // A buffer shorter than the size claims is never overrun.
    PImage shortImage(4, 4, PByteArray(static_cast<unsigned char>(0), 8));
    shortImage.setPixel(3, 3, 1);
    shortImage.fill(1);
    EXPECT_EQ(shortImage.getPixel(3, 3), 0u);
    EXPECT_EQ(shortImage.getPixel(0, 0), 0u);
}

TEST(PImageTest, CopiesShareUntilOneWrites) {
    const PImage original(4, 4, colorOf(kWhite));
    PImage copy = original;
    const PByteArray bytes = original.data();

    copy.changeColor(colorOf(kWhite), colorOf(kWhite));
    EXPECT_EQ(static_cast<const PImage&>(copy).pixelData(), original.pixelData());

    copy.changeColor(colorOf(kWhite), colorOf(kBlack));
    EXPECT_NE(static_cast<const PImage&>(copy).pixelData(), original.pixelData());
    EXPECT_EQ(copy.getPixel(3, 3), kBlack);
    EXPECT_EQ(original.getPixel(3, 3), kWhite);

    PImage writer = original;
    writer.setPixel(0, 0, kBlack);
    writer.fill(kBlack);
    EXPECT_EQ(original.getPixel(0, 0), kWhite);
    EXPECT_EQ(bytes.constData()[0], 0xFF);
    EXPECT_EQ(bytes.constData()[3], 0xFF);
}

TEST(PRectTest, Intersection) {
    using Rect = PRect<int, int>;
    struct Case {
        Rect a, b, expected;
    };
    for (const Case& c : std::vector<Case>{
             {{0, 0, 10, 10}, {10, 0, 5, 5}, {0, 0, 0, 0}},
             {{0, 0, 10, 10}, {9, 0, 5, 5}, {9, 0, 1, 5}},
             {{0, 0, 10, 10}, {0, 10, 5, 5}, {0, 0, 0, 0}},
             {{-5, -3, 10, 10}, {0, 0, 20, 20}, {0, 0, 5, 7}},
             {{0, 0, 10, 10}, {2, 3, 4, 5}, {2, 3, 4, 5}},
         }) {
        for (const Rect& r : {c.a.intersection(c.b), c.b.intersection(c.a)}) {
            EXPECT_EQ(r.x, c.expected.x);
            EXPECT_EQ(r.y, c.expected.y);
            EXPECT_EQ(r.width, c.expected.width);
            EXPECT_EQ(r.height, c.expected.height);
        }
    }
    const PRect<int, unsigned> wide = PRect<int, unsigned>(-4, 0, 10, 1).intersection({0, 0, 3, 1});
    EXPECT_EQ(wide.width, 3u);
}

// A 10 x 2 image whose pixel values name their column.
PImage columnImage() {
    PImage image(10, 2, colorOf(0));
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 10; ++x) {
            image.setPixel(x, y, 100 + x);
        }
    }
    return image;
}

TEST(PPainterTest, DrawImageStartsAtTheImageOriginEvenOffTheDevice) {
    PImage device(20, 4, colorOf(0));
    PPainter painter(&device);
    painter.drawImage(-2, 1, 0, 0, columnImage(), 0);
    // Eight columns go out from image column 0; the first two fall off the left edge.
    for (int x = 0; x < 6; ++x) {
        EXPECT_EQ(device.getPixel(x, 1), 102u + x) << x;
        EXPECT_EQ(device.getPixel(x, 2), 102u + x) << x;
    }
    EXPECT_EQ(device.getPixel(6, 1), 0u);
    EXPECT_EQ(device.getPixel(0, 0), 0u);
    EXPECT_EQ(device.getPixel(0, 3), 0u);
}

TEST(PPainterTest, DrawImageSizeCutsOnlyWithTheFlag) {
    PImage device(20, 4, colorOf(0));
    PPainter painter(&device);
    painter.drawImage(5, 0, 3, 1, columnImage(), PPainter::kClipToSize);
    EXPECT_EQ(device.getPixel(7, 0), 102u);
    EXPECT_EQ(device.getPixel(8, 0), 0u);
    EXPECT_EQ(device.getPixel(5, 1), 0u);

    painter.drawImage(5, 2, 3, 1, columnImage(), 0);
    EXPECT_EQ(device.getPixel(14, 2), 109u);
    EXPECT_EQ(device.getPixel(14, 3), 109u);
}

TEST(PPainterTest, LinesLeaveOutTheirRightEnd) {
    struct Case {
        int x1, y1, x2, y2;
        std::vector<std::pair<int, int>> drawn;
    };
    for (const Case& c : std::vector<Case>{
             {0, 0, 3, 3, {{0, 0}, {1, 1}, {2, 2}}},
             {3, 3, 0, 0, {{0, 0}, {1, 1}, {2, 2}}},
             {5, 1, 5, 9, {}},
             {0, 4, 4, 2, {{0, 4}, {1, 3}, {2, 3}, {3, 2}}},
         }) {
        PImage device(10, 10, colorOf(0));
        PPainter painter(&device);
        painter.setPen(colorOf(kBlack));
        painter.drawLine(c.x1, c.y1, c.x2, c.y2, 1);
        std::vector<std::pair<int, int>> drawn;
        for (int y = 0; y < 10; ++y) {
            for (int x = 0; x < 10; ++x) {
                if (device.getPixel(x, y) == kBlack) {
                    drawn.emplace_back(x, y);
                }
            }
        }
        std::sort(drawn.begin(), drawn.end());
        EXPECT_EQ(drawn, c.drawn) << c.x1 << "," << c.y1 << " " << c.x2 << "," << c.y2;
    }
}

TEST(PPainterTest, RectsAreCutAtTheDeviceAndNeedOneDevice) {
    PImage device(5, 4, colorOf(0));
    PImage other(5, 4, colorOf(0));
    PPainter painter;
    EXPECT_TRUE(painter.begin(&device));
    EXPECT_FALSE(painter.begin(&other));
    painter.setBrush(colorOf(kBlack));
    painter.drawRect(3, 2, 10, 10);
    int filled = 0;
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x) {
            filled += device.getPixel(x, y) == kBlack;
        }
    }
    EXPECT_EQ(filled, 4);
    EXPECT_EQ(device.getPixel(3, 2), kBlack);
    painter.end();
    painter.drawRect(0, 0, 1, 1);
    EXPECT_EQ(device.getPixel(0, 0), 0u);
    EXPECT_EQ(other.getPixel(0, 0), 0u);
}

TEST(PaintDeviceTest, AliasMapsPointsAndTheTargetClips) {
    std::vector<unsigned char> buffer(4 * 3 * 2, 0);
    auto* view = new PPaintDevice(buffer.data(), 3, 2, 4, 12);
    PPaintDeviceAlias alias(view, 2, 3, true);
    // (x, y) -> (2 - y, x): a quarter turn of a 2 x 3 view onto the 3 x 2 buffer.
    alias.setTransfotm(Transform<int>(0, 1, 0, -1, 0, 0, 2, 0, 1));
    alias.setPixel(0, 0, 0x01020304);
    EXPECT_EQ(view->getPixel(2, 0), 0x01020304u);
    EXPECT_EQ(buffer[8], 0x04);
    EXPECT_EQ(alias.getPixel(0, 0), 0x01020304u);
    EXPECT_EQ(alias.width(), 2u);
    EXPECT_EQ(alias.device(), view);

    alias.setPixel(0, 3, 0x77);  // maps to (-1, 0)
    alias.setPixel(2, 0, 0x77);  // maps to (2, 2)
    EXPECT_EQ(std::count(buffer.begin(), buffer.end(), 0x77), 0);

    alias.fill(0x0A0B0C0D);
    EXPECT_EQ(view->getPixel(1, 1), 0x0A0B0C0Du);

    const PPaintDeviceAlias empty;
    EXPECT_EQ(empty.getPixel(0, 0), 0u);
    EXPECT_EQ(empty.bytesPerPixel(), 0u);
}

}  // namespace
