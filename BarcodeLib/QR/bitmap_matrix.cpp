#include "BarcodeLib/QR/bitmap_matrix.h"

#include <cstddef>

#include "BarcodeLib/QR/qr_tables.h"

BitmapMatrix::BitmapMatrix(int size)
    : size(size < 0 ? 0 : size),
      cells(static_cast<std::size_t>(this->size) * this->size, ColorEmpty) {}

void BitmapMatrix::drawModul(int x, int y, Color color) {
    draw(x + kIndentSize, y + kIndentSize, color);
}

void BitmapMatrix::drawModul(int x, int y, bool black) {
    drawModul(x, y, black ? ColorBlack : ColorWhite);
}

Color BitmapMatrix::getModulColor(int x, int y) const {
    return getColor(x + kIndentSize, y + kIndentSize);
}

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
