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

// Length of the run of equal colour that starts at index k of a line of length cells, the
// cells step apart.
int runLength(const unsigned char* line, int step, int k, int length) {
    const unsigned char color = line[k * step];
    int end = k + 1;
    while (end < length && line[end * step] == color) {
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

    // Counted without branches: the outcome of each comparison is as good as random.
    int blocks = 0;
    for (int x = 0; x + 1 < n; ++x) {
        const unsigned char* left = matrix.modulColumn(x);
        const unsigned char* right = matrix.modulColumn(x + 1);
        for (int y = 0; y + 1 < n; ++y) {
            const unsigned char c = left[y];
            blocks += (right[y] == c) & (left[y + 1] == c) & (right[y + 1] == c);
        }
    }
    points += blocks * kBlockPoints;

    // Row d runs along x, so its cells lie a whole column apart.
    const int rowStep = matrix.getSize();
    for (int d = 0; d < n; ++d) {
        const int length = n - d;
        const unsigned char* diagonal = matrix.modulColumn(d) + d;
        int rowAt = 0;
        int columnAt = 0;
        while (rowAt < length && columnAt < length) {
            const int rowRun = runLength(diagonal, rowStep, rowAt, length);
            const int columnRun = runLength(diagonal, 1, columnAt, length);
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
    // The format information takes the same modules whatever the mask, so the data modules are
    // found once, with it in place.
    drawMaskCode(level, modulesPerSide, candidate, 0);
    const std::vector<QRModule> modules = dataModules(candidate, modulesPerSide);
    for (int mask = 0; mask < kMaskCount; ++mask) {
        if (mask > 0) {
            candidate = matrix;
        }
        drawMaskCode(level, modulesPerSide, candidate, mask);
        drawDataAt(modules, bits, candidate, kMaskFunctions[mask]);
        const short score = CalculatePenaltyPoints(candidate, modulesPerSide);
        if (score < bestScore) {
            bestScore = score;
            bestMask = mask;
        }
    }
    drawMaskCode(level, modulesPerSide, matrix, bestMask);
    drawDataAt(modules, bits, matrix, kMaskFunctions[bestMask]);
    return bestMask;
}
