#pragma once

#include "BarcodeLib/qr/qr_levels.h"

// Constant tables of the QR encoder. Level-indexed tables use ErrorCorrectionLevels order (L, M,
// Q, H); version-indexed ones the version number less one.

constexpr int kLevelCount = 4;
constexpr int kVersionCount = 40;
constexpr int kGeneratorCount = 13;
constexpr int kMaskCount = 8;
constexpr int kFormatBitCount = 15;

// Quiet zone around the symbol, in modules.
constexpr int kIndentSize = 4;

inline constexpr char kEncodingModeIndicator[] = "0100";
inline constexpr const char* kAdditionBytes[2] = {"11101100", "00010001"};

extern const short kDataBitsTable[kLevelCount][kVersionCount];
extern const short kBlockCountTable[kLevelCount][kVersionCount];
extern const short kBlockCorrectionTable[kLevelCount][kVersionCount];

extern const short kGaloisLogTable[256];
extern const short kGaloisExpTable[256];
// Each row: the degree, then the generator's coefficients as exponents of alpha, highest first.
extern const short kGeneratorTable[kGeneratorCount][31];

extern const unsigned char kMaskCodeTable[kLevelCount][kMaskCount][kFormatBitCount];
// Versions 7 to 40.
extern const unsigned char kVersionCodeTable[34][3][6];

extern const short kAlignmentPatternsLocationTable[kVersionCount][8];
extern const short kImageSizeTable[kVersionCount];
