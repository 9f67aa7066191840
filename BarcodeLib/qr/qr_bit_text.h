#pragma once

#include <string>
#include <vector>

#include "BarcodeLib/qr/qr_levels.h"

// Bit text: one character '0' or '1' a bit, most significant bit of each byte first.

// The bytes up to the first zero byte, eight characters each.
std::string getByteFromInputData(const char* data);

// Smallest version index that holds the bit text with its header, or -1.
short getOptimalVersion(ErrorCorrectionLevels level, const std::string& bits);

// Mode, count, data, terminator and pad codewords: exactly the capacity of the version.
std::string addTechnicalInformation(const char* modeIndicator, ErrorCorrectionLevels level,
                                    const std::string& bits, short versionIndex);

// Each group of eight characters as one codeword.
std::vector<short> getEncodingBytes(const std::string& bits);
