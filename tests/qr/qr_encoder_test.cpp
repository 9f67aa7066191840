#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "BarcodeLib/qr/qr_bit_text.h"
#include "BarcodeLib/qr/qr_code.h"
#include "BarcodeLib/qr/qr_encoded_data.h"
#include "BarcodeLib/qr/qr_masking.h"
#include "BarcodeLib/qr/qr_tables.h"
#include "tests/qr/qr_test_support.h"

namespace {

BitmapMatrix modules(int n, const std::function<bool(int x, int y)>& black) {
    BitmapMatrix matrix(n + 2 * kIndentSize);
    for (int x = 0; x < n; ++x) {
        for (int y = 0; y < n; ++y) {
            matrix.drawModul(x, y, black(x, y));
        }
    }
    return matrix;
}

}  // namespace

TEST(QRBitText, BytesHeaderTerminatorAndPad) {
    EXPECT_EQ(getByteFromInputData("A\xFF"), "0100000111111111");
    EXPECT_EQ(getByteFromInputData("ab\0cd"), getByteFromInputData("ab"));
    EXPECT_EQ(getByteFromInputData(""), "");

    const std::string empty = addTechnicalInformation(kEncodingModeIndicator, LevelL, "", 0);
    ASSERT_EQ(empty.size(), 152u);
    EXPECT_EQ(empty.substr(0, 16), "0100000000000000");
    for (size_t i = 16, pad = 0; i < empty.size(); i += 8, pad ^= 1) {
        EXPECT_EQ(empty.substr(i, 8), kAdditionBytes[pad]) << i;
    }

    EXPECT_EQ(getEncodingBytes("0100000110000000"), (std::vector<short>{0x41, 0x80}));
}

TEST(QRMasking, ScoreCountsBlocksAndRunsOnHalfLinesFromTheDiagonal) {
    const int n = 21;
    auto checkerboard = [](int x, int y) { return (x + y) % 2 == 0; };
    struct Case {
        const char* name;
        std::function<bool(int, int)> black;
        int score;
    };
    const Case cases[] = {
        {"checkerboard", checkerboard, 0},
        // Blocks 3 * 20 * 20; each diagonal start d has one run of 21 - d in both parts.
        {"all dark", [](int, int) { return true; }, 1200 + 2 * (3 + 19) * 17 / 2},
        // A run left of the diagonal is never looked at.
        {"run left of the diagonal",
         [&](int x, int y) { return y == 20 ? x < 9 : checkerboard(x, y); }, 0},
        // Row 0 is one run, so the walk from (0, 0) stops before the run low in column 0.
        {"walk stops with the shorter part",
         [&](int x, int y) {
             if (y == 0) {
                 return true;
             }
             return x == 0 && y >= 10 ? true : checkerboard(x, y);
         },
         19},
        {"same run in row 0 scores",
         [&](int x, int y) { return y == 0 && x < 9 ? true : checkerboard(x, y); }, 7},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CalculatePenaltyPoints(modules(n, c.black), n), c.score) << c.name;
    }
}

TEST(QRMasking, SymbolCarriesTheFirstLowestScoringMask) {
    struct Case {
        const char* text;
        ErrorCorrectionLevels level;
    };
    // "tie 0" at M scores the same with masks 0 and 2.
    const Case cases[] = {
        {"QR example", LevelQ}, {"https://example.com", LevelH}, {"tie 0", LevelM}};
    for (const auto& [text, level] : cases) {
        QRBitStream bits;
        short v = -1;
        ASSERT_TRUE(getEncodedData(text, level, bits, v, false));
        QRSymbol symbol;
        ASSERT_TRUE(QRcode::encodeSymbol(text, level, false, symbol));
        const int n = kImageSizeTable[v];
        int best = -1;
        int bestScore = 0;
        for (int mask = 0; mask < kMaskCount; ++mask) {
            BitmapMatrix candidate = functionPatterns(v);
            drawMaskCode(level, n, candidate, mask);
            drawData(bits, n, candidate, kMaskFunctions[mask]);
            const int score = CalculatePenaltyPoints(candidate, n);
            if (best < 0 || score < bestScore) {
                best = mask;
                bestScore = score;
            }
        }
        BitmapMatrix expected = functionPatterns(v);
        drawMaskCode(level, n, expected, best);
        drawData(bits, n, expected, kMaskFunctions[best]);
        EXPECT_TRUE(sameCells(expected, symbol.matrix)) << text;
    }
}

TEST(QRScaling, ScaleIsTheWholeNumberOfPixelsAModuleThatFits) {
    QRSymbol symbol;
    ASSERT_TRUE(QRcode::encodeSymbol("QR example", LevelM, false, symbol));
    EXPECT_EQ(symbol.versionIndex, 0);
    ASSERT_EQ(symbol.matrix.getSize(), 29);

    struct Case {
        short imageSize;
        int side;
    };
    const Case cases[] = {{29, 29}, {28, 0}, {100, 87}, {115, 87}, {116, 116}, {0, 0}, {-5, 0}};
    for (const Case& c : cases) {
        std::unique_ptr<BitmapMatrix> out;
        const bool made =
            QRcode::generateQRBitmapMatrix("QR example", LevelM, c.imageSize, out, false);
        EXPECT_EQ(made, c.side > 0) << c.imageSize;
        if (!made) {
            EXPECT_EQ(out, nullptr);
            continue;
        }
        ASSERT_EQ(out->getSize(), c.side);
        const int scale = c.side / 29;
        for (int x = 0; x < c.side; ++x) {
            for (int y = 0; y < c.side; ++y) {
                ASSERT_EQ(out->getColor(x, y), symbol.matrix.getColor(x / scale, y / scale));
            }
        }
    }

    // Bit text in, the same symbol out.
    std::unique_ptr<BitmapMatrix> fromBits;
    const std::string bits = getByteFromInputData("QR example");
    ASSERT_TRUE(QRcode::generateQRBitmapMatrix(bits.c_str(), LevelM, 29, fromBits, true));
    EXPECT_TRUE(sameCells(*fromBits, symbol.matrix));
}

TEST(QRFailures, RefusedInputLeavesTheOutputAlone) {
    std::unique_ptr<BitmapMatrix> out;
    EXPECT_FALSE(
        QRcode::generateQRBitmapMatrix(std::string(1274, 'x').c_str(), LevelH, 32000, out, false));
    EXPECT_FALSE(QRcode::generateQRBitmapMatrix(nullptr, LevelM, 300, out, false));
    EXPECT_FALSE(QRcode::generateQRBitmapMatrix("x", static_cast<ErrorCorrectionLevels>(7), 300,
                                                out, false));
    EXPECT_FALSE(QRcode::generateQRBitmapMatrix("x", static_cast<ErrorCorrectionLevels>(-1), 300,
                                                out, false));
    EXPECT_EQ(out, nullptr);
}
