#pragma once

#include <string>

#include "BarcodeLib/qr/qr_code.h"
#include "BarcodeLib/qr/qr_tables.h"

// Arithmetic the tests use to check the encoder's tables without reading them.

// Product in GF(256) with the field polynomial x^8 + x^4 + x^3 + x^2 + 1.
inline int gfMultiply(int a, int b) {
    int product = 0;
    for (int bit = 7; bit >= 0; --bit) {
        product <<= 1;
        if (product & 0x100) {
            product ^= 0x11D;
        }
        if ((b >> bit) & 1) {
            product ^= a;
        }
    }
    return product;
}

inline int gfPower(int exponent) {
    int value = 1;
    for (int i = 0; i < exponent; ++i) {
        value = gfMultiply(value, 2);
    }
    return value;
}

inline int alignmentCount(int version) {
    return version < 2 ? 0 : version / 7 + 2;
}

// Finder, alignment, timing and version patterns of a version, as the encoder lays them.
inline BitmapMatrix functionPatterns(short versionIndex) {
    const int n = kImageSizeTable[versionIndex];
    BitmapMatrix matrix(n + 2 * kIndentSize);
    QRcode::drawIndent(matrix);
    QRcode::drawDetectionPatterns(matrix, n);
    QRcode::drawAllAlignmentPatterns(matrix, versionIndex);
    QRcode::drawSynchronizationLine(matrix, n);
    QRcode::drawVersionCode(matrix, versionIndex);
    return matrix;
}

inline bool sameCells(const BitmapMatrix& a, const BitmapMatrix& b) {
    if (a.getSize() != b.getSize()) {
        return false;
    }
    for (int x = 0; x < a.getSize(); ++x) {
        for (int y = 0; y < a.getSize(); ++y) {
            if (a.getColor(x, y) != b.getColor(x, y)) {
                return false;
            }
        }
    }
    return true;
}

// Text of length bytes, ASCII, not all of one kind.
inline std::string message(size_t length) {
    static const char kAlphabet[] = "Ship to: 221B Baker Street, London NW1 6XE; ";
    std::string text;
    for (size_t i = 0; i < length; ++i) {
        text += kAlphabet[i % (sizeof(kAlphabet) - 1)];
    }
    return text;
}

// Longest message that fits the version at the level.
inline size_t capacityBytes(int level, int versionIndex) {
    const int header = versionIndex < 9 ? 12 : 20;
    return static_cast<size_t>((kDataBitsTable[level][versionIndex] - header) / 8);
}
