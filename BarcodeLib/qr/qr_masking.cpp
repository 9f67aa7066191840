#include "BarcodeLib/qr/qr_masking.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "BarcodeLib/qr/qr_tables.h"

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
// Every mask repeats itself after 12 modules, across and down.
constexpr int kMaskPeriod = 12;

// Bit m of [x][y]: mask m inverts the module at column x, row y, both taken modulo the period.
using MaskPhases = std::array<std::array<unsigned char, kMaskPeriod>, kMaskPeriod>;

const MaskPhases& maskPhases() {
    static const MaskPhases phases = [] {
        MaskPhases table{};
        for (int x = 0; x < kMaskPeriod; ++x) {
            for (int y = 0; y < kMaskPeriod; ++y) {
                for (int mask = 0; mask < kMaskCount; ++mask) {
                    const bool inverts = kMaskFunctions[mask](x, y) == 0;
                    table[x][y] |= static_cast<unsigned char>(inverts << mask);
                }
            }
        }
        return table;
    }();
    return phases;
}

// The colour of each data module under every mask, one bit a mask: set for black.
std::vector<unsigned char> maskedColours(const std::vector<QRModule>& modules,
                                         const QRBitStream& bits) {
    const MaskPhases& phases = maskPhases();
    std::vector<unsigned char> colours(modules.size());
    for (std::size_t i = 0; i < modules.size(); ++i) {
        const unsigned char bit = i < bits.size() && bits[i] != 0 ? 0xFF : 0;
        colours[i] = bit ^ phases[modules[i].x % kMaskPeriod][modules[i].y % kMaskPeriod];
    }
    return colours;
}

void drawMaskedData(const std::vector<QRModule>& modules, const std::vector<unsigned char>& colours,
                    int mask, BitmapMatrix& matrix) {
    for (std::size_t i = 0; i < modules.size(); ++i) {
        matrix.drawModul(modules[i].x, modules[i].y, ((colours[i] >> mask) & 1) != 0);
    }
}

// Where each run of equal colour starts along a line of length cells, the cells step apart;
// starts gets one more entry, the length. Returns the number of runs. Without branches: a
// colour change is as good as random.
int runStarts(const unsigned char* line, int step, int length, int* starts) {
    int count = 1;
    starts[0] = 0;
    for (int k = 1; k < length; ++k) {
        starts[count] = k;
        count += line[k * step] != line[(k - 1) * step];
    }
    starts[count] = length;
    return count;
}

// Points of the first runs of a line.
int runPoints(const int* starts, int runs) {
    int points = 0;
    for (int i = 0; i < runs; ++i) {
        const int length = starts[i + 1] - starts[i];
        points += length >= kShortestScoredRun ? length - 2 : 0;
    }
    return points;
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

    // The half row and the half column from each diagonal cell are walked run by run side by
    // side, until either ends. Row d runs along x, so its cells lie a whole column apart.
    const int rowStep = matrix.getSize();
    std::vector<int> rowRuns(static_cast<std::size_t>(n) + 1);
    std::vector<int> columnRuns(static_cast<std::size_t>(n) + 1);
    for (int d = 0; d < n; ++d) {
        const int length = n - d;
        const unsigned char* diagonal = matrix.modulColumn(d) + d;
        const int walked = std::min(runStarts(diagonal, rowStep, length, rowRuns.data()),
                                    runStarts(diagonal, 1, length, columnRuns.data()));
        points += runPoints(rowRuns.data(), walked) + runPoints(columnRuns.data(), walked);
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
    const std::vector<unsigned char> colours = maskedColours(modules, bits);
    // Each mask draws over the format information and every data module of the one before.
    for (int mask = 0; mask < kMaskCount; ++mask) {
        drawMaskCode(level, modulesPerSide, candidate, mask);
        drawMaskedData(modules, colours, mask, candidate);
        const short score = CalculatePenaltyPoints(candidate, modulesPerSide);
        if (score < bestScore) {
            bestScore = score;
            bestMask = mask;
        }
    }
    drawMaskCode(level, modulesPerSide, matrix, bestMask);
    drawMaskedData(modules, colours, bestMask, matrix);
    return bestMask;
}
