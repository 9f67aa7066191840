#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>

#include "BarcodeLib/QR/qr_bit_text.h"
#include "BarcodeLib/QR/qr_code.h"
#include "BarcodeLib/QR/qr_encoded_data.h"
#include "BarcodeLib/QR/qr_masking.h"
#include "BarcodeLib/QR/qr_reed_solomon.h"
#include "BarcodeLib/QR/qr_tables.h"
#include "tests/qr/qr_test_support.h"

namespace {

std::string bytes(size_t count) {
    return std::string(count, 'x');
}

// Finder, alignment, timing and version patterns of a version, as the encoder lays them.
BitmapMatrix functionPatterns(short versionIndex) {
    const int n = kImageSizeTable[versionIndex];
    BitmapMatrix matrix(n + 2 * kIndentSize);
    QRcode::drawIndent(matrix);
    QRcode::drawDetectionPatterns(matrix, n);
    QRcode::drawAllAlignmentPatterns(matrix, versionIndex);
    QRcode::drawSynchronizationLine(matrix, n);
    QRcode::drawVersionCode(matrix, versionIndex);
    return matrix;
}

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

TEST(QRBitText, VersionIsTheSmallestThatHoldsMessageAndHeader) {
    struct Case {
        ErrorCorrectionLevels level;
        size_t length;
        short versionIndex;
    };
    const Case cases[] = {
        {LevelL, 0, 0},     {LevelL, 17, 0},    {LevelL, 18, 1},    {LevelL, 230, 8},
        {LevelL, 231, 9},   {LevelL, 2953, 39}, {LevelL, 2954, -1}, {LevelM, 2331, 39},
        {LevelM, 2332, -1}, {LevelQ, 1663, 39}, {LevelQ, 1664, -1}, {LevelH, 1273, 39},
        {LevelH, 1274, -1}, {LevelH, 1275, -1}, {LevelM, 14, 0},    {LevelM, 15, 1},
    };
    for (const Case& c : cases) {
        const std::string bits = getByteFromInputData(bytes(c.length).c_str());
        EXPECT_EQ(getOptimalVersion(c.level, bits), c.versionIndex)
            << "level " << c.level << ", " << c.length << " bytes";
    }
    EXPECT_EQ(getOptimalVersion(LevelM, getByteFromInputData("QR example")), 0);
}

TEST(QRBitText, BytesExpandMostSignificantBitFirstUpToTheFirstZero) {
    EXPECT_EQ(getByteFromInputData("A\xFF"), "0100000111111111");
    EXPECT_EQ(getByteFromInputData("ab\0cd"), getByteFromInputData("ab"));
    EXPECT_EQ(getByteFromInputData(""), "");
}

TEST(QRBitText, HeaderTerminatorAndPadFillTheCapacity) {
    const std::string empty = addTechnicalInformation(kEncodingModeIndicator, LevelL, "", 0);
    ASSERT_EQ(empty.size(), 152u);
    EXPECT_EQ(empty.substr(0, 16), "0100000000000000");
    for (size_t i = 16, pad = 0; i < empty.size(); i += 8, pad ^= 1) {
        EXPECT_EQ(empty.substr(i, 8), kAdditionBytes[pad]) << i;
    }

    // From version 10 the count takes 16 bits.
    const std::string data = getByteFromInputData(bytes(231).c_str());
    const std::string long_count = addTechnicalInformation(kEncodingModeIndicator, LevelL, data, 9);
    EXPECT_EQ(long_count.size(), static_cast<size_t>(kDataBitsTable[LevelL][9]));
    EXPECT_EQ(long_count.substr(0, 20),
              "0100"
              "0000000011100111");
    EXPECT_EQ(long_count.substr(20, data.size()), data);
    EXPECT_EQ(long_count.substr(20 + data.size(), 4), "0000");

    const std::vector<short> codewords = getEncodingBytes("0100000110000000");
    EXPECT_EQ(codewords, (std::vector<short>{0x41, 0x80}));
}

TEST(QRBlocks, EveryBlockWithItsCorrectionIsACodewordOfTheCode) {
    struct Case {
        ErrorCorrectionLevels level;
        short versionIndex;
    };
    // One block, equal blocks, and short blocks ahead of long ones.
    const Case cases[] = {{LevelL, 0}, {LevelH, 3}, {LevelQ, 4}, {LevelM, 20}, {LevelH, 39}};
    for (const Case& c : cases) {
        SCOPED_TRACE("level " + std::to_string(c.level) + " version index " +
                     std::to_string(c.versionIndex));
        const std::string message = "blocks " + std::to_string(c.versionIndex);
        const std::vector<short> codewords = getEncodingBytes(
            addTechnicalInformation(kEncodingModeIndicator, c.level,
                                    getByteFromInputData(message.c_str()), c.versionIndex));
        short blockLength = 0;
        const auto data = getDataBlocksArray(c.level, codewords, blockLength, c.versionIndex);
        const auto correction =
            getCorrectionBlocksArray(c.level, data, blockLength, c.versionIndex);
        ASSERT_EQ(data.size(), static_cast<size_t>(kBlockCountTable[c.level][c.versionIndex]));
        ASSERT_EQ(correction.size(), data.size());

        const int e = kBlockCorrectionTable[c.level][c.versionIndex];
        size_t total = 0;
        bool longSeen = false;
        std::vector<int> firstOfEachBlock;
        for (size_t b = 0; b < data.size(); ++b) {
            const bool isShort = data[b][blockLength - 1] == -1;
            EXPECT_FALSE(isShort && longSeen) << "short block after a long one";
            longSeen = longSeen || !isShort;
            const size_t m = static_cast<size_t>(blockLength) - (isShort ? 1 : 0);
            total += m;
            firstOfEachBlock.push_back(data[b][0]);

            ASSERT_EQ(correction[b].size(), static_cast<size_t>(e));
            // The whole block, as a polynomial, vanishes at alpha^0 ... alpha^(e-1).
            std::vector<int> word(data[b].begin(), data[b].begin() + m);
            word.insert(word.end(), correction[b].begin(), correction[b].end());
            for (int root = 0; root < e; ++root) {
                int value = 0;
                for (int coefficient : word) {
                    value = gfMultiply(value, gfPower(root)) ^ coefficient;
                }
                EXPECT_EQ(value, 0) << "block " << b << " root " << root;
            }
        }
        EXPECT_EQ(total, codewords.size());

        const QRBitStream stream =
            getBitsForBitmapMatrix(c.level, data, correction, blockLength, c.versionIndex);
        EXPECT_EQ(stream.size(), (total + data.size() * e) * 8);
        for (size_t b = 0; b < firstOfEachBlock.size(); ++b) {
            int codeword = 0;
            for (size_t bit = 0; bit < 8; ++bit) {
                codeword = (codeword << 1) | stream[b * 8 + bit];
            }
            EXPECT_EQ(codeword, firstOfEachBlock[b]) << "interleaved position " << b;
        }
    }
}

TEST(QRLayout, FunctionPatternsLeaveExactlyTheDataModules) {
    for (short v = 0; v < kVersionCount; ++v) {
        const int n = kImageSizeTable[v];
        BitmapMatrix matrix = functionPatterns(v);
        drawMaskCode(LevelM, n, matrix, 0);
        int empty = 0;
        for (int x = 0; x < n; ++x) {
            for (int y = 0; y < n; ++y) {
                empty += matrix.getModulColor(x, y) == ColorEmpty;
            }
        }
        EXPECT_EQ(empty, dataModuleCount(v + 1)) << "version " << v + 1;

        QRSymbol symbol;
        const std::string text =
            std::string(static_cast<size_t>(kDataBitsTable[LevelL][v] / 8 - 3), 'y');
        ASSERT_TRUE(QRcode::encodeSymbol(text.c_str(), LevelL, false, symbol));
        int left = 0;
        for (int x = 0; x < symbol.matrix.getSize(); ++x) {
            for (int y = 0; y < symbol.matrix.getSize(); ++y) {
                left += symbol.matrix.getColor(x, y) == ColorEmpty;
            }
        }
        EXPECT_EQ(left, 0) << "version " << v + 1;
    }
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

TEST(QRMasking, SymbolCarriesTheLowestScoringMask) {
    const char* messages[] = {"QR example", "https://example.com/some/longer/path?q=1", ""};
    for (const char* message : messages) {
        QRBitStream bits;
        short v = -1;
        ASSERT_TRUE(getEncodedData(message, LevelQ, bits, v, false));
        QRSymbol symbol;
        ASSERT_TRUE(QRcode::encodeSymbol(message, LevelQ, false, symbol));
        const int n = kImageSizeTable[v];

        int best = -1;
        int bestScore = 0;
        int drawn = -1;
        for (int mask = 0; mask < kMaskCount; ++mask) {
            BitmapMatrix candidate = functionPatterns(v);
            drawMaskCode(LevelQ, n, candidate, mask);
            drawData(bits, n, candidate, kMaskFunctions[mask]);
            const int score = CalculatePenaltyPoints(candidate, n);
            if (best < 0 || score < bestScore) {
                best = mask;
                bestScore = score;
            }
            bool same = true;
            for (int x = 0; x < n && same; ++x) {
                for (int y = 0; y < n && same; ++y) {
                    same = candidate.getModulColor(x, y) == symbol.matrix.getModulColor(x, y);
                }
            }
            if (same) {
                drawn = mask;
            }
        }
        EXPECT_EQ(drawn, best) << message;
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
        for (int i = 0; i < 4 * scale; ++i) {
            EXPECT_EQ(out->getColor(i, c.side / 2), ColorWhite);
            EXPECT_EQ(out->getColor(c.side / 2, c.side - 1 - i), ColorWhite);
        }
    }

    // Bit text in, the same symbol out.
    std::unique_ptr<BitmapMatrix> fromBits;
    const std::string bits = getByteFromInputData("QR example");
    ASSERT_TRUE(QRcode::generateQRBitmapMatrix(bits.c_str(), LevelM, 29, fromBits, true));
    for (int x = 0; x < 29; ++x) {
        for (int y = 0; y < 29; ++y) {
            ASSERT_EQ(fromBits->getColor(x, y), symbol.matrix.getColor(x, y));
        }
    }
}

TEST(QRFailures, RefusedInputLeavesTheOutputAlone) {
    std::unique_ptr<BitmapMatrix> out;
    const std::string tooLong = bytes(1274);
    EXPECT_FALSE(QRcode::generateQRBitmapMatrix(tooLong.c_str(), LevelH, 32000, out, false));
    EXPECT_FALSE(QRcode::generateQRBitmapMatrix(nullptr, LevelM, 300, out, false));
    EXPECT_FALSE(QRcode::generateQRBitmapMatrix("x", static_cast<ErrorCorrectionLevels>(7), 300,
                                                out, false));
    EXPECT_FALSE(QRcode::generateQRBitmapMatrix("x", static_cast<ErrorCorrectionLevels>(-1), 300,
                                                out, false));
    EXPECT_EQ(out, nullptr);
}
