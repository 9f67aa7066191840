#pragma once

#include "BarcodeLib/qr/qr_blocks.h"
#include "BarcodeLib/qr/qr_levels.h"

// The whole codeword stream of a message: with dataIsBits false, data is the message up to its
// first zero byte; with dataIsBits true, it is already bit text. False when it doesn't fit the
// level.
bool getEncodedData(const char* data, ErrorCorrectionLevels level, QRBitStream& bits,
                    short& versionIndex, bool dataIsBits);
