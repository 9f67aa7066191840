#include <gtest/gtest.h>

#include <vector>

#include "BarcodeLib/barcode_canvas_memory_impl.h"
#include "layer/foundation/p_error.h"

namespace {

using BarcodeVelko::BarcodeCanvasMemoryImpl;

constexpr unsigned kWhite = 0xFFFFFFFF;
constexpr unsigned kBar = 0xFF0000FF;

struct Dot {
    int x, y;
};

// The places of all pixels that differ from the background.
std::vector<std::pair<int, int>> marks(const PImage& image, unsigned background) {
    std::vector<std::pair<int, int>> found;
    for (unsigned y = 0; y < image.height(); ++y) {
        for (unsigned x = 0; x < image.width(); ++x) {
            if (image.getPixel(x, y) != background) {
                found.emplace_back(x, y);
            }
        }
    }
    return found;
}

TEST(MemoryCanvasTest, RotationTurnsTheLogicalCanvasOnTheSameBuffer) {
    struct Case {
        int rotation;
        unsigned width, height;
        Dot origin;
    };
    // A 200 x 100 logical canvas; where its pixel (0, 0) lands in the picture.
    for (const Case& c : std::vector<Case>{{0, 200, 100, {0, 0}},
                                           {90, 100, 200, {99, 0}},
                                           {180, 200, 100, {199, 99}},
                                           {270, 100, 200, {0, 199}},
                                           {-90, 100, 200, {0, 199}},
                                           {450, 100, 200, {99, 0}},
                                           {-180, 200, 100, {199, 99}}}) {
        BarcodeCanvasMemoryImpl canvas(200, 100, kWhite);
        canvas.setCanvasRotation(c.rotation);
        canvas.setBarColorImp(kBar);
        canvas.drawBarImp(1, 1, true);
        EXPECT_EQ(canvas.getWidthImp(), 200u);

        const PImage picture = canvas.getImage();
        EXPECT_EQ(picture.width(), c.width) << c.rotation;
        EXPECT_EQ(picture.height(), c.height) << c.rotation;
        EXPECT_EQ(picture.pixelData(), canvas.data().constData()) << c.rotation;
        const std::vector<std::pair<int, int>> expected{{c.origin.x, c.origin.y}};
        EXPECT_EQ(marks(picture, kWhite), expected) << c.rotation;
    }
}

TEST(MemoryCanvasTest, BarsAreCutAtTheLogicalEdgeInEveryRotation) {
    for (int rotation : {0, 90, 180, 270}) {
        BarcodeCanvasMemoryImpl canvas(200, 100, kWhite);
        canvas.setCanvasRotation(rotation);
        canvas.setXYImp(195, 90);
        canvas.drawBarImp(10, 30, false);
        unsigned x = 0;
        unsigned y = 0;
        canvas.getXYImp(&x, &y);
        EXPECT_EQ(x, 200u) << rotation;
        EXPECT_EQ(y, 100u) << rotation;
        EXPECT_EQ(marks(canvas.getImage(), kWhite).size(), 5u * 10u) << rotation;
    }
}

TEST(MemoryCanvasTest, SpacesAndTheBackgroundStateLeavePixelsAlone) {
    BarcodeCanvasMemoryImpl canvas(10, 10, 0x00FFFFFF);
    EXPECT_TRUE(canvas.IsTransparentBackground());
    canvas.setXYImp(2, 3);
    canvas.drawSpaceImp(5, 5, false);
    canvas.SetTransparentBackground(false);
    EXPECT_FALSE(canvas.IsTransparentBackground());
    unsigned x = 0;
    unsigned y = 0;
    canvas.getXYImp(&x, &y);
    EXPECT_EQ(x, 2u);
    EXPECT_EQ(y, 3u);
    EXPECT_TRUE(marks(canvas.getImage(), 0x00FFFFFF).empty());

    canvas.fillCanvasImp(0x12345678, false);
    EXPECT_EQ(canvas.getImage().getPixel(9, 9), 0x12345678u);
    EXPECT_TRUE(canvas.getRotatedImage(0).width() == 0);
    EXPECT_EQ(canvas.lastError().code(), 0);
}

TEST(MemoryCanvasTest, AnEmptyCanvasDrawsNothing) {
    BarcodeCanvasMemoryImpl canvas(0, 50, kWhite);
    canvas.setCanvasRotation(90);
    canvas.setXYImp(3, 3);
    canvas.drawBarImp(10, 10, false);
    unsigned x = 1;
    unsigned y = 1;
    canvas.getXYImp(&x, &y);
    EXPECT_EQ(x, 0u);
    EXPECT_EQ(y, 0u);
    EXPECT_FALSE(canvas.getImage().isValid());
}

}  // namespace
