#pragma once

#include "BarcodeLib/qr/bitmap_matrix.h"
#include "BarcodeLib/qr/qr_blocks.h"
#include "BarcodeLib/qr/qr_data_placement.h"
#include "BarcodeLib/qr/qr_levels.h"

// The data masks 000 to 111, with y the row and x the column.
int zeroMask(int x, int y);
int firstMask(int x, int y);
int secondMask(int x, int y);
int thirdMask(int x, int y);
int fourthMask(int x, int y);
int fifthMask(int x, int y);
int sixthMask(int x, int y);
int seventhMask(int x, int y);

extern const MaskFunction kMaskFunctions[8];

// The encoder's own score of a finished candidate: 2 x 2 blocks of one colour, and long runs on
// the half rows and half columns that start on the diagonal. Lower is better.
short CalculatePenaltyPoints(const BitmapMatrix& matrix, int modulesPerSide);

// Scores every mask on a copy of the matrix with its function patterns, then draws format
// information and data with the best one (the lowest number of equal scores). Returns the mask.
int getOptimalMaskedImageMatrix(BitmapMatrix& matrix, const QRBitStream& bits,
                                ErrorCorrectionLevels level, int modulesPerSide);
