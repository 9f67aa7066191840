#include "BarcodeLib/QR/qr_code.h"

#include "BarcodeLib/QR/qr_encoded_data.h"
#include "BarcodeLib/QR/qr_masking.h"
#include "BarcodeLib/QR/qr_tables.h"

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

bool QRcode::encodeSymbol(const char* data, ErrorCorrectionLevels level, bool dataIsBits,
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
