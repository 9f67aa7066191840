#include <gtest/gtest.h>

#include <ZXing/ReadBarcode.h>

#include <string>
#include <vector>

#include "BarcodeLib/qr/qr_code.h"
#include "BarcodeLib/qr/qr_encoded_data.h"
#include "BarcodeLib/qr/qr_masking.h"
#include "BarcodeLib/qr/qr_tables.h"
#include "tests/qr/qr_test_support.h"

namespace {

const ErrorCorrectionLevels kLevels[] = {LevelL, LevelM, LevelQ, LevelH};

struct Decoded {
    bool valid = false;
    std::string bytes;
    std::string level;
};

// Renders the matrix as it stands, one grey pixel a cell, black for ColorBlack only.
Decoded decode(const BitmapMatrix& matrix, bool pure) {
    const int size = matrix.getSize();
    std::vector<uint8_t> pixels(static_cast<size_t>(size) * size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            pixels[static_cast<size_t>(y) * size + x] =
                matrix.getColor(x, y) == ColorBlack ? 0 : 255;
        }
    }
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::QRCode).setIsPure(pure).setTryRotate(false);
    const ZXing::Result result = ZXing::ReadBarcode(
        ZXing::ImageView(pixels.data(), size, size, ZXing::ImageFormat::Lum), hints);
    Decoded decoded;
    decoded.valid = result.isValid();
    decoded.bytes.assign(result.bytes().begin(), result.bytes().end());
    const std::wstring level = result.ecLevel();
    decoded.level.assign(level.begin(), level.end());
    return decoded;
}

int emptyCells(const BitmapMatrix& matrix) {
    int count = 0;
    for (int x = 0; x < matrix.getSize(); ++x) {
        for (int y = 0; y < matrix.getSize(); ++y) {
            count += matrix.getColor(x, y) == ColorEmpty;
        }
    }
    return count;
}

}  // namespace

TEST(QRRoundTrip, EveryVersionAtItsCapacityEdgeDecodes) {
    const char* kLevelNames[] = {"L", "M", "Q", "H"};
    for (ErrorCorrectionLevels level : kLevels) {
        for (int v = 0; v < kVersionCount; ++v) {
            SCOPED_TRACE("level " + std::string(kLevelNames[level]) + " version " +
                         std::to_string(v + 1));
            const std::string text = message(capacityBytes(level, v));
            QRSymbol symbol;
            ASSERT_TRUE(QRcode::encodeSymbol(text.c_str(), level, false, symbol));
            EXPECT_EQ(symbol.versionIndex, v);
            EXPECT_EQ(symbol.modulesPerSide(), 17 + 4 * (v + 1));
            EXPECT_EQ(emptyCells(symbol.matrix), 0) << "remainder modules must be filled";

            const Decoded decoded = decode(QRcode::changeImageSize(symbol.matrix, 2), true);
            ASSERT_TRUE(decoded.valid);
            EXPECT_EQ(decoded.bytes, text);
            EXPECT_EQ(decoded.level, kLevelNames[level]);

            const std::string longer = message(text.size() + 1);
            QRSymbol next;
            const bool fits = QRcode::encodeSymbol(longer.c_str(), level, false, next);
            EXPECT_EQ(fits, v + 1 < kVersionCount);
            if (fits) {
                EXPECT_EQ(next.versionIndex, v + 1);
            }
        }
    }
}

TEST(QRRoundTrip, EveryMaskDecodes) {
    // Version 2 has remainder bits, version 7 the first version information.
    for (const short version : {1, 6}) {
        const std::string text = message(capacityBytes(LevelQ, version));
        QRBitStream bits;
        short v = -1;
        ASSERT_TRUE(getEncodedData(text.c_str(), LevelQ, bits, v, false));
        ASSERT_EQ(v, version);
        const int n = kImageSizeTable[v];
        for (int mask = 0; mask < kMaskCount; ++mask) {
            BitmapMatrix matrix = functionPatterns(v);
            drawMaskCode(LevelQ, n, matrix, mask);
            drawData(bits, n, matrix, kMaskFunctions[mask]);
            const Decoded decoded = decode(QRcode::changeImageSize(matrix, 3), false);
            ASSERT_TRUE(decoded.valid) << "version " << v + 1 << " mask " << mask;
            EXPECT_EQ(decoded.bytes, text);
        }
    }
}
