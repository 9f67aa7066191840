#pragma once

#include <memory>

#include "BarcodeLib/qr/bitmap_matrix.h"
#include "BarcodeLib/qr/qr_levels.h"

// A finished symbol at one cell a module, the quiet zone included.
struct QRSymbol {
    BitmapMatrix matrix;
    short versionIndex = -1;  // the version number less one

    // Modules per side without the quiet zone.
    int modulesPerSide() const;
};

// QR Code Model 2 in one byte-mode segment, at the smallest version that holds the message.
class QRcode {
public:
    // Encodes the message and blows it up to the largest whole number of pixels a module whose
    // symbol, quiet zone included, fits imageSize. With dataIsBits false, data is the message up
    // to its first zero byte (UTF-8 goes in as its bytes); with dataIsBits true it is bit text
    // from getByteFromInputData. False, with out untouched, when the message is too long for
    // the level or imageSize is below the symbol's side.
    static bool generateQRBitmapMatrix(const char* data, ErrorCorrectionLevels level,
                                       short imageSize, std::unique_ptr<BitmapMatrix>& out,
                                       bool dataIsBits);
    static bool getImage(const char* data, ErrorCorrectionLevels level, short imageSize,
                         std::unique_ptr<BitmapMatrix>& out, bool dataIsBits);

    // The unscaled symbol; false when the message is too long for the level. The last symbol
    // is kept for a next call with the same message and level.
    static bool encodeSymbol(const char* data, ErrorCorrectionLevels level, bool dataIsBits,
                             QRSymbol& symbol);

    // Each cell becomes a square of scale cells.
    static BitmapMatrix changeImageSize(const BitmapMatrix& matrix, int scale);

    static void drawIndent(BitmapMatrix& matrix);
    static void drawDetectionPatterns(BitmapMatrix& matrix, int modulesPerSide);
    static void drawAlignmentPattern(BitmapMatrix& matrix, int centreX, int centreY);
    static void drawAllAlignmentPatterns(BitmapMatrix& matrix, short versionIndex);
    static void drawSynchronizationLine(BitmapMatrix& matrix, int modulesPerSide);
    static void drawVersionCode(BitmapMatrix& matrix, short versionIndex);

private:
    static bool encodeFresh(const char* data, ErrorCorrectionLevels level, bool dataIsBits,
                            QRSymbol& symbol);
};
