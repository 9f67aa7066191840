#include "BarcodeLib/qr/qr_blocks.h"

#include <cstddef>

#include "BarcodeLib/qr/qr_tables.h"

std::vector<QRBlock> getDataBlocksArray(ErrorCorrectionLevels level,
                                        const std::vector<short>& codewords, short& blockLength,
                                        short versionIndex) {
    const std::size_t count = codewords.size();
    const std::size_t blockCount = static_cast<std::size_t>(kBlockCountTable[level][versionIndex]);
    const std::size_t fullBlocks = count % blockCount;
    blockLength = static_cast<short>(count / blockCount + (fullBlocks != 0 ? 1 : 0));

    std::vector<QRBlock> blocks(blockCount, QRBlock(blockLength, -1));
    std::size_t next = 0;
    for (std::size_t b = 0; b < blockCount; ++b) {
        const bool shortBlock = fullBlocks != 0 && b < blockCount - fullBlocks;
        const std::size_t length = static_cast<std::size_t>(blockLength) - (shortBlock ? 1 : 0);
        for (std::size_t i = 0; i < length; ++i) {
            blocks[b][i] = codewords[next++];
        }
    }
    return blocks;
}

void addByteToEncodedData(QRBitStream& bits, short codeword) {
    for (int bit = 7; bit >= 0; --bit) {
        bits.push_back(static_cast<unsigned char>((codeword >> bit) & 1));
    }
}

QRBitStream getBitsForBitmapMatrix(ErrorCorrectionLevels level,
                                   const std::vector<QRBlock>& dataBlocks,
                                   const std::vector<QRBlock>& correctionBlocks, short blockLength,
                                   short versionIndex) {
    const short correctionLength = kBlockCorrectionTable[level][versionIndex];
    QRBitStream bits;
    bits.reserve((static_cast<std::size_t>(blockLength) + correctionLength) * dataBlocks.size() *
                 8);
    for (short i = 0; i < blockLength; ++i) {
        for (const QRBlock& block : dataBlocks) {
            if (block[i] != -1) {
                addByteToEncodedData(bits, block[i]);
            }
        }
    }
    for (short i = 0; i < correctionLength; ++i) {
        for (const QRBlock& block : correctionBlocks) {
            addByteToEncodedData(bits, block[i]);
        }
    }
    return bits;
}
