#pragma once

#include <vector>

#include "BarcodeLib/qr/qr_blocks.h"
#include "BarcodeLib/qr/qr_levels.h"

// Row of kGeneratorTable for this degree, or -1.
int getPolinomialIndex(int degree);

// The correction codewords of each data block, by long division through the generator.
std::vector<QRBlock> getCorrectionBlocksArray(ErrorCorrectionLevels level,
                                              const std::vector<QRBlock>& dataBlocks,
                                              short blockLength, short versionIndex);
