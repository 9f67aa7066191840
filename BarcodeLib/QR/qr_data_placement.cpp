#include "BarcodeLib/QR/qr_data_placement.h"

#include <cstddef>

#include "BarcodeLib/QR/qr_tables.h"

void drawData(const QRBitStream& bits, int modulesPerSide, BitmapMatrix& matrix,
              MaskFunction mask) {
    const int n = modulesPerSide;
    std::size_t next = 0;
    bool upwards = true;
    for (int x = n - 1; x > 0; x -= 2) {
        if (x == 6) {
            // The vertical timing line takes column 6 whole.
            x = 5;
        }
        for (int step = 0; step < n; ++step) {
            const int y = upwards ? n - 1 - step : step;
            for (int column = x; column >= x - 1; --column) {
                if (matrix.getModulColor(column, y) != ColorEmpty) {
                    continue;
                }
                const bool bit = next < bits.size() && bits[next++] != 0;
                matrix.drawModul(column, y, bit != (mask(column, y) == 0));
            }
        }
        upwards = !upwards;
    }
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
