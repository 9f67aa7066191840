#include <gtest/gtest.h>

#include <tuple>
#include <utility>
#include <vector>

#include "BarcodeLib/tree/barcode_canvas_memory_impl.h"
#include "layer/foundation/p_error.h"
#include "layer/graphics/p_abstract_paint_device_wrapper.h"
#include "layer/graphics/p_color.h"
#include "layer/graphics/p_image.h"
#include "layer/graphics/p_paint_device_alias.h"
#include "layer/graphics/p_painter.h"
#include "layer/graphics/p_rect.h"

namespace {

using BarcodeVelko::BarcodeCanvasMemoryImpl;
using Dots = std::vector<std::pair<int, int>>;

constexpr unsigned kWhite = 0xFFFFFFFF;
constexpr unsigned kBlack = 0xFF000000;

PColor colorOf(unsigned value) {
    return PColor(value, PColor::kNative);
}

// The places of all pixels that differ from the background, row by row.
Dots marks(const PImage& image, unsigned background) {
    Dots found;
    for (unsigned y = 0; y < image.height(); ++y) {
        for (unsigned x = 0; x < image.width(); ++x) {
            if (image.getPixel(x, y) != background) {
                found.emplace_back(x, y);
            }
        }
    }
    return found;
}

TEST(PImageTest, SidesAreCutAtTheLimitAndEmptySizesGiveAnInvalidImage) {
    const struct {
        unsigned width, height;
        unsigned expectedWidth, expectedHeight, expectedPitch, expectedBytesPerPixel;
    } cases[] = {{9000, 100, 8000, 100, 32000, 4},
                 {100, 9000, 100, 8000, 400, 4},
                 {0, 10, 0, 0, 0, 0},
                 {10, 0, 0, 0, 0, 0}};
    for (const auto& c : cases) {
        const PImage image(c.width, c.height, colorOf(kWhite));
        SCOPED_TRACE(std::to_string(c.width) + "x" + std::to_string(c.height));
        EXPECT_EQ(image.width(), c.expectedWidth);
        EXPECT_EQ(image.height(), c.expectedHeight);
        EXPECT_EQ(image.pitch(), c.expectedPitch);
        EXPECT_EQ(image.bytesPerPixel(), c.expectedBytesPerPixel);
        EXPECT_EQ(image.isValid(), c.expectedWidth != 0);
    }
}

TEST(PImageTest, OutsideIsIgnoredAndAShortBufferNeverOverrun) {
    PImage image(3, 2, colorOf(0x11223344));
    for (const auto& [x, y] : Dots{{-1, 0}, {0, -1}, {3, 0}, {0, 2}}) {
        image.setPixel(x, y, 0);
        EXPECT_EQ(image.getPixel(x, y), 0u);
    }
    EXPECT_TRUE(marks(image, 0x11223344).empty());
    PImage shortImage(4, 4, PByteArray(static_cast<unsigned char>(0), 8));
    shortImage.setPixel(3, 3, 1);
    shortImage.fill(1);
    EXPECT_EQ(shortImage.getPixel(3, 3), 0u);
    EXPECT_EQ(shortImage.getPixel(0, 0), 0u);
}

TEST(PImageTest, CopiesShareUntilOneWrites) {
    const PImage original(4, 4, colorOf(kWhite));
    const PByteArray bytes = original.data();
    PImage writer = original;
    EXPECT_EQ(static_cast<const PImage&>(writer).pixelData(), original.pixelData());
    writer.setPixel(0, 0, kBlack);
    writer.fill(kBlack);
    EXPECT_EQ(writer.getPixel(3, 3), kBlack);
    EXPECT_EQ(original.getPixel(0, 0), kWhite);
    EXPECT_EQ(bytes.constData()[0], 0xFF);
    EXPECT_EQ(bytes.constData()[3], 0xFF);
}

// A filled rectangle covers exactly the pixels that plotting it would, on the picture itself
// and through every turn of an alias, also where it hangs over an edge.
TEST(PImageTest, FillRectCoversWhatPlottingCovers) {
    const struct {
        int x, y;
        unsigned width, height;
    } rects[] = {{2, 3, 5, 4}, {-3, -2, 6, 5}, {8, 1, 10, 3}, {0, 0, 12, 9}, {4, 4, 0, 3}};
    const Transform<int> turns[] = {Transform<int>(1, 0, 0, 0, 1, 0, 0, 0, 1),
                                    Transform<int>(0, 1, 0, -1, 0, 0, 8, 0, 1),
                                    Transform<int>(-1, 0, 0, 0, -1, 0, 11, 8, 1)};
    for (const auto& r : rects) {
        for (const Transform<int>& turn : turns) {
            PImage filled(12, 9, colorOf(kWhite));
            PImage plotted(12, 9, colorOf(kWhite));
            PAbstractPaintDeviceWrapper filledBase(&filled);
            PAbstractPaintDeviceWrapper plottedBase(&plotted);
            PPaintDeviceAlias filledAlias(&filledBase, 12, 9, false);
            PPaintDeviceAlias plottedAlias(&plottedBase, 12, 9, false);
            filledAlias.setTransfotm(turn);
            plottedAlias.setTransfotm(turn);
            filledAlias.fillRect(r.x, r.y, r.width, r.height, kBlack);
            for (unsigned dy = 0; dy < r.height; ++dy) {
                for (unsigned dx = 0; dx < r.width; ++dx) {
                    plottedAlias.setPixel(r.x + static_cast<int>(dx), r.y + static_cast<int>(dy),
                                          kBlack);
                }
            }
            EXPECT_EQ(marks(filled, kWhite), marks(plotted, kWhite)) << r.x << "," << r.y;
        }
    }
}

TEST(PPainterTest, DrawImageStartsAtTheImageOriginEvenOffTheDeviceAndCutsOnlyWithTheFlag) {
    // A 10 x 2 image whose pixel values name their column.
    PImage columns(10, 2, colorOf(0));
    for (int x = 0; x < 10; ++x) {
        columns.setPixel(x, 0, 100 + x);
        columns.setPixel(x, 1, 100 + x);
    }
    PImage device(20, 4, colorOf(0));
    PImage other(20, 4, colorOf(0));
    PPainter painter;
    EXPECT_TRUE(painter.begin(&device));
    EXPECT_FALSE(painter.begin(&other));
    painter.drawImage(-2, 1, 0, 0, columns, 0);
    // Eight columns go out from image column 0; the first two fall off the left edge.
    for (int x = 0; x < 6; ++x) {
        EXPECT_EQ(device.getPixel(x, 1), 102u + x) << x;
        EXPECT_EQ(device.getPixel(x, 2), 102u + x) << x;
    }
    EXPECT_EQ(device.getPixel(6, 1), 0u);
    EXPECT_EQ(device.getPixel(0, 0), 0u);
    EXPECT_EQ(device.getPixel(0, 3), 0u);

    painter.drawImage(12, 0, 3, 1, columns, PPainter::kClipToSize);
    EXPECT_EQ(device.getPixel(14, 0), 102u);
    EXPECT_EQ(device.getPixel(15, 0), 0u);
    EXPECT_EQ(device.getPixel(12, 1), 0u);
    painter.drawImage(10, 2, 3, 1, columns, 0);
    EXPECT_EQ(device.getPixel(19, 2), 109u);
    EXPECT_EQ(device.getPixel(19, 3), 109u);
    EXPECT_TRUE(marks(other, 0).empty());
}

// Lines and colour formats are kept for other pictures than barcodes: one pass over them.
// A line leaves out its right end, whichever way it is drawn.
TEST(PPainterTest, LinesAndColourFormatsOffTheBarcodePath) {
    const struct {
        int x1, y1, x2, y2;
        Dots drawn;  // row by row
    } cases[] = {{3, 3, 0, 0, {{0, 0}, {1, 1}, {2, 2}}},
                 {5, 1, 5, 9, {}},
                 {0, 4, 4, 2, {{3, 2}, {1, 3}, {2, 3}, {0, 4}}}};
    for (const auto& c : cases) {
        PImage device(10, 10, colorOf(0));
        PPainter painter(&device);
        painter.setPen(colorOf(kBlack));
        painter.drawLine(c.x1, c.y1, c.x2, c.y2, 1);
        EXPECT_EQ(marks(device, 0), c.drawn) << c.x1 << "," << c.y1 << " " << c.x2 << "," << c.y2;
    }
    const PColor color(1, 2, 3, 4);
    EXPECT_EQ(color.value(PColor::kNative), 0x04010203u);
    EXPECT_EQ(color.value(PColor::kRgb), 0x00010203u);
    EXPECT_EQ(color.value(PColor::kReversed), 0x03020104u);
}

TEST(MemoryCanvasTest, RotationTurnsTheLogicalCanvasOnTheSameBufferAndCutsBarsAtItsEdge) {
    // A 200 x 100 logical canvas; where its pixel (0, 0) lands in the picture.
    const struct {
        int rotation;
        unsigned width, height;
        int x, y;
    } cases[] = {{0, 200, 100, 0, 0},      {90, 100, 200, 99, 0},   {180, 200, 100, 199, 99},
                 {270, 100, 200, 0, 199},  {-90, 100, 200, 0, 199}, {450, 100, 200, 99, 0},
                 {-180, 200, 100, 199, 99}};
    for (const auto& c : cases) {
        BarcodeCanvasMemoryImpl canvas(200, 100, kWhite);
        canvas.setCanvasRotation(c.rotation);
        canvas.setBarColorImp(0xFF0000FF);
        canvas.drawBarImp(1, 1, true);
        EXPECT_EQ(canvas.getWidthImp(), 200u);
        const PImage picture = canvas.getImage();
        EXPECT_EQ(picture.width(), c.width) << c.rotation;
        EXPECT_EQ(picture.height(), c.height) << c.rotation;
        EXPECT_EQ(picture.pixelData(), canvas.data().constData()) << c.rotation;
        EXPECT_EQ(marks(picture, kWhite), (Dots{{c.x, c.y}})) << c.rotation;
        // A bar is cut at the logical edge.
        canvas.setXYImp(195, 90);
        canvas.drawBarImp(10, 30, false);
        unsigned x = 0;
        unsigned y = 0;
        canvas.getXYImp(&x, &y);
        EXPECT_EQ(std::pair(x, y), std::pair(200u, 100u)) << c.rotation;
        EXPECT_EQ(marks(canvas.getImage(), kWhite).size(), 1u + 5u * 10u) << c.rotation;
    }
}

// Spaces, the background state and a canvas without pixels draw nothing; a space moves nothing.
TEST(MemoryCanvasTest, SpacesTheBackgroundStateAndAnEmptyCanvasDrawNothing) {
    BarcodeCanvasMemoryImpl canvas(10, 10, 0x00FFFFFF);
    EXPECT_TRUE(canvas.IsTransparentBackground());
    canvas.setXYImp(2, 3);
    canvas.drawSpaceImp(5, 5, false);
    canvas.SetTransparentBackground(false);
    EXPECT_FALSE(canvas.IsTransparentBackground());
    unsigned x = 0;
    unsigned y = 0;
    canvas.getXYImp(&x, &y);
    EXPECT_EQ(std::pair(x, y), std::pair(2u, 3u));
    EXPECT_TRUE(marks(canvas.getImage(), 0x00FFFFFF).empty());
    canvas.fillCanvasImp(0x12345678, false);
    EXPECT_EQ(canvas.getImage().getPixel(9, 9), 0x12345678u);
    EXPECT_TRUE(canvas.getRotatedImage(0).width() == 0);
    EXPECT_EQ(canvas.lastError().code(), 0);

    BarcodeCanvasMemoryImpl empty(0, 50, kWhite);
    empty.setCanvasRotation(90);
    empty.setXYImp(3, 3);
    empty.drawBarImp(10, 10, false);
    empty.getXYImp(&x, &y);
    EXPECT_EQ(std::pair(x, y), std::pair(0u, 0u));
    EXPECT_FALSE(empty.getImage().isValid());
}

}  // namespace
