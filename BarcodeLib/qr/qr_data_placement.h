#pragma once

#include <vector>

#include "BarcodeLib/qr/bitmap_matrix.h"
#include "BarcodeLib/qr/qr_blocks.h"
#include "BarcodeLib/qr/qr_levels.h"

// 0 where the module at column x, row y is to be inverted.
using MaskFunction = int (*)(int x, int y);

// Places the stream into the empty modules in the zigzag order; empty modules left over after
// the stream take bit 0.
void drawData(const QRBitStream& bits, int modulesPerSide, BitmapMatrix& matrix, MaskFunction mask);

// A module by column and row.
struct QRModule {
    short x;
    short y;
};

// The empty modules in the order in which drawData fills them.
std::vector<QRModule> dataModules(const BitmapMatrix& matrix, int modulesPerSide);

// Colour of one bit of the format information.
Color getColor(ErrorCorrectionLevels level, int mask, int bitIndex);

// Both copies of the format information, and the dark module.
void drawMaskCode(ErrorCorrectionLevels level, int modulesPerSide, BitmapMatrix& matrix, int mask);
