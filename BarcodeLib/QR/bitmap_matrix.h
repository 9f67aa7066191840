#pragma once

#include <vector>

enum Color : unsigned char { ColorEmpty = 0, ColorWhite = 1, ColorBlack = 2 };

// A square of cells, column-major. The module accessors skip the quiet zone; the raw ones don't.
// Coordinates are not checked.
class BitmapMatrix {
public:
    explicit BitmapMatrix(int size = 0);

    int getSize() const { return size; }

    void draw(int x, int y, Color color) { cells[index(x, y)] = color; }
    Color getColor(int x, int y) const { return static_cast<Color>(cells[index(x, y)]); }

    void drawModul(int x, int y, Color color);
    void drawModul(int x, int y, bool black);
    Color getModulColor(int x, int y) const;
    bool drawModulIfEmpty(int x, int y, Color color);
    bool drawModulIfEmpty(int x, int y, bool black);

private:
    int index(int x, int y) const { return x * size + y; }

    int size;
    std::vector<unsigned char> cells;
};
