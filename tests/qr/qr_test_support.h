#pragma once

#include "BarcodeLib/QR/qr_code.h"
#include "BarcodeLib/QR/qr_tables.h"

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

// Modules left for codewords and remainder bits, counted from the function patterns.
inline int dataModuleCount(int version) {
    const int n = 17 + 4 * version;
    const int centres = alignmentCount(version);
    int patterns = 0;
    int onTimingLines = 0;
    if (version >= 7) {
        patterns = centres * centres - 3;
        onTimingLines = 2 * (centres - 2);
    } else if (version >= 2) {
        patterns = 1;
    }
    const int finders = 3 * 8 * 8;
    const int timing = 2 * (n - 16);
    const int format = 2 * 15 + 1;
    const int versionInfo = version >= 7 ? 2 * 18 : 0;
    return n * n - finders - timing - format - versionInfo - 25 * patterns + 5 * onTimingLines;
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
