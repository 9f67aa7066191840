#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "BarcodeLib/qr/qr_tables.h"
#include "tests/qr/qr_test_support.h"

namespace {

// Remainder of value * x^(degree of generator) divided by the generator, over GF(2).
int bchRemainder(int value, int generator) {
    int degree = 0;
    while ((generator >> (degree + 1)) != 0) {
        ++degree;
    }
    int remainder = value << degree;
    for (int bit = 30; bit >= degree; --bit) {
        if ((remainder >> bit) & 1) {
            remainder ^= generator << (bit - degree);
        }
    }
    return remainder;
}

}  // namespace

TEST(QRTables, GaloisTablesArePowersAndLogarithmsOfTwo) {
    EXPECT_EQ(kGaloisLogTable[0], -1);
    for (int i = 0; i < 255; ++i) {
        ASSERT_EQ(kGaloisExpTable[i], gfPower(i)) << i;
        EXPECT_EQ(kGaloisLogTable[kGaloisExpTable[i]], i);
    }
    EXPECT_EQ(kGaloisExpTable[255], 1);
}

TEST(QRTables, GeneratorsAreProductsOfTheFirstPowersOfAlpha) {
    std::set<int> degreesInUse;
    for (int level = 0; level < kLevelCount; ++level) {
        for (int v = 0; v < kVersionCount; ++v) {
            degreesInUse.insert(kBlockCorrectionTable[level][v]);
        }
    }
    std::set<int> degreesListed;
    for (const auto& row : kGeneratorTable) {
        const int degree = row[0];
        degreesListed.insert(degree);
        // (x - a^0)(x - a^1)...(x - a^(degree-1)), highest coefficient first.
        std::vector<int> product = {1};
        for (int i = 0; i < degree; ++i) {
            std::vector<int> next(product.size() + 1, 0);
            for (size_t j = 0; j < product.size(); ++j) {
                next[j] ^= product[j];
                next[j + 1] ^= gfMultiply(product[j], gfPower(i));
            }
            product = next;
        }
        for (int k = 1; k <= degree; ++k) {
            EXPECT_EQ(gfPower(row[k]), product[k]) << "degree " << degree << " term " << k;
        }
    }
    EXPECT_EQ(degreesListed, degreesInUse);
}

TEST(QRTables, FormatInformationIsTheMaskedBchCode) {
    const int kLevelBits[kLevelCount] = {1, 0, 3, 2};
    for (int level = 0; level < kLevelCount; ++level) {
        for (int mask = 0; mask < kMaskCount; ++mask) {
            const int data = (kLevelBits[level] << 3) | mask;
            const int expected = ((data << 10) | bchRemainder(data, 0x537)) ^ 0x5412;
            int listed = 0;
            for (int bit = 0; bit < kFormatBitCount; ++bit) {
                listed = (listed << 1) | kMaskCodeTable[level][mask][bit];
            }
            EXPECT_EQ(listed, expected) << "level " << level << " mask " << mask;
        }
    }
}

TEST(QRTables, VersionInformationIsTheBchCodeInDrawingOrder) {
    for (int version = 7; version <= 40; ++version) {
        const int expected = (version << 12) | bchRemainder(version, 0x1F25);
        int listed = 0;
        for (int k = 0; k < 3; ++k) {
            for (int c = 0; c < 6; ++c) {
                listed |= kVersionCodeTable[version - 7][k][c] << (3 * c + k);
            }
        }
        EXPECT_EQ(listed, expected) << "version " << version;
    }
}

TEST(QRTables, SidesAndAlignmentCentresFollowTheirSpacingRule) {
    for (int version = 1; version <= kVersionCount; ++version) {
        const int n = 17 + 4 * version;
        EXPECT_EQ(kImageSizeTable[version - 1], n);
        const short* listed = kAlignmentPatternsLocationTable[version - 1];
        if (version == 1) {
            EXPECT_EQ(listed[0], -1);
            continue;
        }
        // Centres run from 6 to n - 7; all gaps but the first are one even step, the smallest
        // even number not below an equal share. Version 32 alone takes a step of 26.
        const int count = alignmentCount(version);
        const int share = (n - 13 + count - 2) / (count - 1);
        const int step = version == 32 ? 26 : share + share % 2;
        std::vector<int> expected(count);
        expected[0] = 6;
        for (int i = count - 1; i >= 1; --i) {
            expected[i] = n - 7 - (count - 1 - i) * step;
        }
        if (version < 7) {
            expected.erase(expected.begin());
        }
        expected.resize(8, 0);
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(listed[i], expected[i]) << "version " << version << " entry " << i;
        }
    }
}
