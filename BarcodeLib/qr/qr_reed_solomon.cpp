#include "BarcodeLib/qr/qr_reed_solomon.h"

#include <algorithm>
#include <cstddef>

#include "BarcodeLib/qr/qr_tables.h"

int getPolinomialIndex(int degree) {
    for (int row = 0; row < kGeneratorCount; ++row) {
        if (kGeneratorTable[row][0] == degree) {
            return row;
        }
    }
    return -1;
}

std::vector<QRBlock> getCorrectionBlocksArray(ErrorCorrectionLevels level,
                                              const std::vector<QRBlock>& dataBlocks,
                                              short blockLength, short versionIndex) {
    const int e = kBlockCorrectionTable[level][versionIndex];
    const short* generator = kGeneratorTable[getPolinomialIndex(e)] + 1;

    std::vector<QRBlock> correction;
    correction.reserve(dataBlocks.size());
    QRBlock buffer;
    for (const QRBlock& block : dataBlocks) {
        const auto end = std::find(block.begin(), block.begin() + blockLength, -1);
        const std::size_t m = static_cast<std::size_t>(end - block.begin());
        buffer.assign(std::max(m, static_cast<std::size_t>(e)), 0);
        std::copy(block.begin(), end, buffer.begin());

        for (std::size_t step = 0; step < m; ++step) {
            const short lead = buffer[0];
            std::copy(buffer.begin() + 1, buffer.end(), buffer.begin());
            buffer.back() = 0;
            if (lead == 0) {
                continue;
            }
            const int logLead = kGaloisLogTable[lead];
            for (int k = 0; k < e; ++k) {
                buffer[k] =
                    static_cast<short>(buffer[k] ^ kGaloisExpTable[(logLead + generator[k]) % 255]);
            }
        }
        correction.emplace_back(buffer.begin(), buffer.begin() + e);
    }
    return correction;
}
