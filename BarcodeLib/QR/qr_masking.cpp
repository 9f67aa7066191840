#include "BarcodeLib/QR/qr_masking.h"

#include "BarcodeLib/QR/qr_tables.h"

int zeroMask(int x, int y) {
    return (x + y) % 2;
}

int firstMask(int, int y) {
    return y % 2;
}

int secondMask(int x, int) {
    return x % 3;
}

int thirdMask(int x, int y) {
    return (x + y) % 3;
}

int fourthMask(int x, int y) {
    return (y / 2 + x / 3) % 2;
}

int fifthMask(int x, int y) {
    return (x * y) % 2 + (x * y) % 3;
}

int sixthMask(int x, int y) {
    return ((x * y) % 2 + (x * y) % 3) % 2;
}

int seventhMask(int x, int y) {
    return ((x + y) % 2 + (x * y) % 3) % 2;
}

const MaskFunction kMaskFunctions[8] = {zeroMask,   firstMask, secondMask, thirdMask,
                                        fourthMask, fifthMask, sixthMask,  seventhMask};

namespace {

constexpr int kBlockPoints = 3;
constexpr int kShortestScoredRun = 5;
constexpr int kInitialBestScore = 30000;

// Length of the run of equal colour that starts k modules from the diagonal module (d, d),
// along row d or down column d.
int runLength(const BitmapMatrix& matrix, int d, int k, int length, bool alongRow) {
    auto at = [&](int i) {
        return alongRow ? matrix.getModulColor(d + i, d) : matrix.getModulColor(d, d + i);
    };
    const Color color = at(k);
    int end = k + 1;
    while (end < length && at(end) == color) {
        ++end;
    }
    return end - k;
}

int runPoints(int length) {
    return length >= kShortestScoredRun ? length - 2 : 0;
}

}  // namespace

short CalculatePenaltyPoints(const BitmapMatrix& matrix, int modulesPerSide) {
    const int n = modulesPerSide;
    int points = 0;

    for (int x = 0; x + 1 < n; ++x) {
        for (int y = 0; y + 1 < n; ++y) {
            const Color c = matrix.getModulColor(x, y);
            if (matrix.getModulColor(x + 1, y) == c && matrix.getModulColor(x, y + 1) == c &&
                matrix.getModulColor(x + 1, y + 1) == c) {
                points += kBlockPoints;
            }
        }
    }

    for (int d = 0; d < n; ++d) {
        const int length = n - d;
        int rowAt = 0;
        int columnAt = 0;
        while (rowAt < length && columnAt < length) {
            const int rowRun = runLength(matrix, d, rowAt, length, true);
            const int columnRun = runLength(matrix, d, columnAt, length, false);
            points += runPoints(rowRun) + runPoints(columnRun);
            rowAt += rowRun;
            columnAt += columnRun;
        }
    }
    return static_cast<short>(points);
}

int getOptimalMaskedImageMatrix(BitmapMatrix& matrix, const QRBitStream& bits,
                                ErrorCorrectionLevels level, int modulesPerSide) {
    int bestScore = kInitialBestScore;
    int bestMask = 0;
    BitmapMatrix candidate(matrix);
    for (int mask = 0; mask < kMaskCount; ++mask) {
        if (mask > 0) {
            candidate = matrix;
        }
        drawMaskCode(level, modulesPerSide, candidate, mask);
        drawData(bits, modulesPerSide, candidate, kMaskFunctions[mask]);
        const short score = CalculatePenaltyPoints(candidate, modulesPerSide);
        if (score < bestScore) {
            bestScore = score;
            bestMask = mask;
        }
    }
    drawMaskCode(level, modulesPerSide, matrix, bestMask);
    drawData(bits, modulesPerSide, matrix, kMaskFunctions[bestMask]);
    return bestMask;
}
