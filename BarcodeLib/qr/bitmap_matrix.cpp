#include "BarcodeLib/qr/bitmap_matrix.h"

#include <cstddef>

BitmapMatrix::BitmapMatrix(int size)
    : size(size < 0 ? 0 : size),
      cells(static_cast<std::size_t>(this->size) * this->size, ColorEmpty) {}

bool BitmapMatrix::drawModulIfEmpty(int x, int y, Color color) {
    if (getModulColor(x, y) != ColorEmpty) {
        return false;
    }
    drawModul(x, y, color);
    return true;
}

bool BitmapMatrix::drawModulIfEmpty(int x, int y, bool black) {
    return drawModulIfEmpty(x, y, black ? ColorBlack : ColorWhite);
}
