#include "BarcodeLib/qr/qr_bit_text.h"

#include <cstddef>
#include <cstring>

#include "BarcodeLib/qr/qr_tables.h"

namespace {

// Byte count field: 8 bits up to version 9, 16 bits from version 10 on.
constexpr short kLongCountVersionIndex = 9;

int headerLength(short versionIndex) {
    return versionIndex < kLongCountVersionIndex ? 4 + 8 : 4 + 16;
}

void appendBinary(std::string& text, unsigned value, int bitCount) {
    for (int bit = bitCount - 1; bit >= 0; --bit) {
        text += ((value >> bit) & 1u) ? '1' : '0';
    }
}

}  // namespace

std::string getByteFromInputData(const char* data) {
    std::string bits;
    if (data == nullptr) {
        return bits;
    }
    const std::size_t length = std::strlen(data);
    bits.reserve(length * 8);
    for (std::size_t i = 0; i < length; ++i) {
        appendBinary(bits, static_cast<unsigned char>(data[i]), 8);
    }
    return bits;
}

short getOptimalVersion(ErrorCorrectionLevels level, const std::string& bits) {
    const std::size_t length = bits.size();
    for (short v = 0; v < kVersionCount; ++v) {
        const std::size_t capacity = static_cast<std::size_t>(kDataBitsTable[level][v]);
        if (capacity < length) {
            continue;
        }
        if (length + headerLength(v) <= capacity) {
            return v;
        }
        if (v + 1 >= kVersionCount) {
            return -1;
        }
        return static_cast<short>(v + 1);
    }
    return -1;
}

std::string addTechnicalInformation(const char* modeIndicator, ErrorCorrectionLevels level,
                                    const std::string& bits, short versionIndex) {
    const std::size_t capacity = static_cast<std::size_t>(kDataBitsTable[level][versionIndex]);
    std::string text;
    text.reserve(capacity);
    text += modeIndicator;
    appendBinary(text, static_cast<unsigned>(bits.size() / 8),
                 versionIndex < kLongCountVersionIndex ? 8 : 16);
    text += bits;
    while (text.size() % 8 != 0) {
        text += '0';
    }
    for (int pad = 0; text.size() < capacity; pad ^= 1) {
        text += kAdditionBytes[pad];
    }
    return text;
}

std::vector<short> getEncodingBytes(const std::string& bits) {
    std::vector<short> codewords(bits.size() / 8);
    for (std::size_t i = 0; i < codewords.size(); ++i) {
        short value = 0;
        for (std::size_t b = 0; b < 8; ++b) {
            value = static_cast<short>((value << 1) | (bits[i * 8 + b] == '1'));
        }
        codewords[i] = value;
    }
    return codewords;
}
