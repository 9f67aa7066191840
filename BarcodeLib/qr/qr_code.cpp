#include "BarcodeLib/qr/qr_code.h"

#include <mutex>
#include <string>

#include "BarcodeLib/qr/qr_encoded_data.h"
#include "BarcodeLib/qr/qr_masking.h"
#include "BarcodeLib/qr/qr_tables.h"

int QRSymbol::modulesPerSide() const {
    return matrix.getSize() - 2 * kIndentSize;
}

bool QRcode::generateQRBitmapMatrix(const char* data, ErrorCorrectionLevels level, short imageSize,
                                    std::unique_ptr<BitmapMatrix>& out, bool dataIsBits) {
    return getImage(data, level, imageSize, out, dataIsBits);
}

bool QRcode::getImage(const char* data, ErrorCorrectionLevels level, short imageSize,
                      std::unique_ptr<BitmapMatrix>& out, bool dataIsBits) {
    QRSymbol symbol;
    if (!encodeSymbol(data, level, dataIsBits, symbol)) {
        return false;
    }
    const int scale = imageSize / symbol.matrix.getSize();
    if (scale < 1) {
        return false;
    }
    out = std::make_unique<BitmapMatrix>(changeImageSize(symbol.matrix, scale));
    return true;
}

namespace {

// The last symbol encoded: a value is encoded when the host writes it and again for each of its
// pictures, and the mask search is the larger part of a picture.
struct LastSymbol {
    std::mutex mutex;
    std::string data;
    ErrorCorrectionLevels level = LevelM;
    bool dataIsBits = false;
    QRSymbol symbol;
};

LastSymbol& lastSymbol() {
    static LastSymbol last;
    return last;
}

}  // namespace

bool QRcode::encodeSymbol(const char* data, ErrorCorrectionLevels level, bool dataIsBits,
                          QRSymbol& symbol) {
    LastSymbol& last = lastSymbol();
    {
        std::lock_guard<std::mutex> lock(last.mutex);
        if (last.symbol.versionIndex >= 0 && last.level == level && last.dataIsBits == dataIsBits &&
            last.data == data) {
            symbol = last.symbol;
            return true;
        }
    }
    if (!encodeFresh(data, level, dataIsBits, symbol)) {
        return false;
    }
    std::lock_guard<std::mutex> lock(last.mutex);
    last.data = data;
    last.level = level;
    last.dataIsBits = dataIsBits;
    last.symbol = symbol;
    return true;
}

bool QRcode::encodeFresh(const char* data, ErrorCorrectionLevels level, bool dataIsBits,
                         QRSymbol& symbol) {
    QRBitStream bits;
    short versionIndex = -1;
    if (!getEncodedData(data, level, bits, versionIndex, dataIsBits)) {
        return false;
    }
    const int n = kImageSizeTable[versionIndex];
    BitmapMatrix matrix(n + 2 * kIndentSize);
    drawIndent(matrix);
    drawDetectionPatterns(matrix, n);
    drawAllAlignmentPatterns(matrix, versionIndex);
    drawSynchronizationLine(matrix, n);
    drawVersionCode(matrix, versionIndex);
    getOptimalMaskedImageMatrix(matrix, bits, level, n);

    symbol.matrix = std::move(matrix);
    symbol.versionIndex = versionIndex;
    return true;
}

BitmapMatrix QRcode::changeImageSize(const BitmapMatrix& matrix, int scale) {
    const int size = matrix.getSize();
    BitmapMatrix scaled(size * scale);
    for (int x = 0; x < size * scale; ++x) {
        for (int y = 0; y < size * scale; ++y) {
            scaled.draw(x, y, matrix.getColor(x / scale, y / scale));
        }
    }
    return scaled;
}
