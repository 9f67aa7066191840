#pragma once

#include <vector>

#include "BarcodeLib/qr/qr_tables.h"

enum Color : unsigned char { ColorEmpty = 0, ColorWhite = 1, ColorBlack = 2 };

// A square of cells, column-major. The module accessors skip the quiet zone; the raw ones don't.
// Coordinates are not checked.
class BitmapMatrix {
public:
    explicit BitmapMatrix(int size = 0);

    int getSize() const { return size; }

    void draw(int x, int y, Color color) { cells[index(x, y)] = color; }
    Color getColor(int x, int y) const { return static_cast<Color>(cells[index(x, y)]); }

    // Inline: the mask search reads every module of eight candidates.
    void drawModul(int x, int y, Color color) { draw(x + kIndentSize, y + kIndentSize, color); }
    void drawModul(int x, int y, bool black) { drawModul(x, y, black ? ColorBlack : ColorWhite); }
    Color getModulColor(int x, int y) const { return getColor(x + kIndentSize, y + kIndentSize); }
    // Module column x from module row 0 down: the rows follow one another in memory.
    const unsigned char* modulColumn(int x) const {
        return &cells[index(x + kIndentSize, kIndentSize)];
    }
    bool drawModulIfEmpty(int x, int y, Color color);
    bool drawModulIfEmpty(int x, int y, bool black);

private:
    int index(int x, int y) const { return x * size + y; }

    int size;
    std::vector<unsigned char> cells;
};
