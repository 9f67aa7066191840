#include <algorithm>
#include <cstdlib>

#include "BarcodeLib/qr/qr_code.h"
#include "BarcodeLib/qr/qr_tables.h"

namespace {

constexpr short kFirstVersionIndexWithVersionCode = 6;

int ring(int dx, int dy) {
    return std::max(std::abs(dx), std::abs(dy));
}

// Finder pattern with its separator, centred at (cx, cy); parts outside the symbol are cut.
void drawFinder(BitmapMatrix& matrix, int n, int cx, int cy) {
    for (int dx = -4; dx <= 4; ++dx) {
        for (int dy = -4; dy <= 4; ++dy) {
            const int x = cx + dx;
            const int y = cy + dy;
            if (x < 0 || y < 0 || x >= n || y >= n) {
                continue;
            }
            const int r = ring(dx, dy);
            matrix.drawModul(x, y, r != 2 && r != 4);
        }
    }
}

}  // namespace

void QRcode::drawIndent(BitmapMatrix& matrix) {
    const int size = matrix.getSize();
    for (int x = 0; x < size; ++x) {
        for (int y = 0; y < size; ++y) {
            if (std::min({x, y, size - 1 - x, size - 1 - y}) < kIndentSize) {
                matrix.draw(x, y, ColorWhite);
            }
        }
    }
}

void QRcode::drawDetectionPatterns(BitmapMatrix& matrix, int modulesPerSide) {
    drawFinder(matrix, modulesPerSide, 3, 3);
    drawFinder(matrix, modulesPerSide, modulesPerSide - 4, 3);
    drawFinder(matrix, modulesPerSide, 3, modulesPerSide - 4);
}

void QRcode::drawAlignmentPattern(BitmapMatrix& matrix, int centreX, int centreY) {
    for (int dx = -2; dx <= 2; ++dx) {
        for (int dy = -2; dy <= 2; ++dy) {
            matrix.drawModul(centreX + dx, centreY + dy, ring(dx, dy) != 1);
        }
    }
}

void QRcode::drawAllAlignmentPatterns(BitmapMatrix& matrix, short versionIndex) {
    if (versionIndex < 1) {
        return;
    }
    const short* centres = kAlignmentPatternsLocationTable[versionIndex];
    int count = 0;
    while (count < 8 && centres[count] != 0) {
        ++count;
    }
    const int last = count - 1;
    for (int i = 0; i < count; ++i) {
        for (int j = 0; j < count; ++j) {
            const bool onFinder =
                (i == 0 && j == 0) || (i == 0 && j == last) || (i == last && j == 0);
            if (versionIndex >= kFirstVersionIndexWithVersionCode && onFinder) {
                continue;
            }
            drawAlignmentPattern(matrix, centres[i], centres[j]);
        }
    }
}

void QRcode::drawSynchronizationLine(BitmapMatrix& matrix, int modulesPerSide) {
    for (int i = 6; i < modulesPerSide; ++i) {
        matrix.drawModulIfEmpty(i, 6, i % 2 == 0);
        matrix.drawModulIfEmpty(6, i, i % 2 == 0);
    }
}

void QRcode::drawVersionCode(BitmapMatrix& matrix, short versionIndex) {
    if (versionIndex < kFirstVersionIndexWithVersionCode) {
        return;
    }
    const int n = kImageSizeTable[versionIndex];
    const auto& code = kVersionCodeTable[versionIndex - kFirstVersionIndexWithVersionCode];
    for (int k = 0; k < 3; ++k) {
        for (int c = 0; c < 6; ++c) {
            const bool black = code[k][c] != 0;
            matrix.drawModul(c, n - 11 + k, black);
            matrix.drawModul(n - 11 + k, c, black);
        }
    }
}
