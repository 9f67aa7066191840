#include "BarcodeLib/qr/qr_data_placement.h"

#include <cstddef>

#include "BarcodeLib/qr/qr_tables.h"

void drawData(const QRBitStream& bits, int modulesPerSide, BitmapMatrix& matrix,
              MaskFunction mask) {
    const std::vector<QRModule> modules = dataModules(matrix, modulesPerSide);
    for (std::size_t i = 0; i < modules.size(); ++i) {
        const QRModule m = modules[i];
        const bool bit = i < bits.size() && bits[i] != 0;
        matrix.drawModul(m.x, m.y, bit != (mask(m.x, m.y) == 0));
    }
}

std::vector<QRModule> dataModules(const BitmapMatrix& matrix, int modulesPerSide) {
    const int n = modulesPerSide;
    std::vector<QRModule> modules;
    modules.reserve(static_cast<std::size_t>(n) * n);
    bool upwards = true;
    for (int x = n - 1; x > 0; x -= 2) {
        if (x == 6) {
            // The vertical timing line takes column 6 whole.
            x = 5;
        }
        for (int step = 0; step < n; ++step) {
            const int y = upwards ? n - 1 - step : step;
            for (int column = x; column >= x - 1; --column) {
                if (matrix.getModulColor(column, y) == ColorEmpty) {
                    modules.push_back({static_cast<short>(column), static_cast<short>(y)});
                }
            }
        }
        upwards = !upwards;
    }
    return modules;
}

Color getColor(ErrorCorrectionLevels level, int mask, int bitIndex) {
    return kMaskCodeTable[level][mask][bitIndex] ? ColorBlack : ColorWhite;
}

void drawMaskCode(ErrorCorrectionLevels level, int modulesPerSide, BitmapMatrix& matrix, int mask) {
    const int n = modulesPerSide;
    static const int kRowPositions[8] = {0, 1, 2, 3, 4, 5, 7, 8};
    static const int kColumnPositions[7] = {7, 5, 4, 3, 2, 1, 0};
    for (int bit = 0; bit < 8; ++bit) {
        matrix.drawModul(kRowPositions[bit], 8, getColor(level, mask, bit));
        matrix.drawModul(n - 8 + bit, 8, getColor(level, mask, 7 + bit));
    }
    for (int bit = 0; bit < 7; ++bit) {
        matrix.drawModul(8, kColumnPositions[bit], getColor(level, mask, 8 + bit));
        matrix.drawModul(8, n - 1 - bit, getColor(level, mask, bit));
    }
    matrix.drawModul(8, n - 8, ColorBlack);
}
