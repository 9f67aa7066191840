#pragma once

#include <vector>

#include "BarcodeLib/qr/qr_levels.h"

// Codewords of one block; -1 in the last place of a block that is one codeword short.
using QRBlock = std::vector<short>;

// The final codeword stream, one entry (0 or 1) a bit.
using QRBitStream = std::vector<unsigned char>;

// Splits the codewords into the level's blocks, the short ones first.
std::vector<QRBlock> getDataBlocksArray(ErrorCorrectionLevels level,
                                        const std::vector<short>& codewords, short& blockLength,
                                        short versionIndex);

void addByteToEncodedData(QRBitStream& bits, short codeword);

// Interleaves data and correction codewords, block by block within each column.
QRBitStream getBitsForBitmapMatrix(ErrorCorrectionLevels level,
                                   const std::vector<QRBlock>& dataBlocks,
                                   const std::vector<QRBlock>& correctionBlocks, short blockLength,
                                   short versionIndex);
