#include "BarcodeLib/qr/qr_encoded_data.h"

#include <string>

#include "BarcodeLib/qr/qr_bit_text.h"
#include "BarcodeLib/qr/qr_reed_solomon.h"
#include "BarcodeLib/qr/qr_tables.h"

bool getEncodedData(const char* data, ErrorCorrectionLevels level, QRBitStream& bits,
                    short& versionIndex, bool dataIsBits) {
    if (data == nullptr || !isValidLevel(level)) {
        return false;
    }
    const std::string message = dataIsBits ? std::string(data) : getByteFromInputData(data);
    const short version = getOptimalVersion(level, message);
    if (version < 0) {
        return false;
    }
    const std::vector<short> codewords =
        getEncodingBytes(addTechnicalInformation(kEncodingModeIndicator, level, message, version));
    short blockLength = 0;
    const std::vector<QRBlock> dataBlocks =
        getDataBlocksArray(level, codewords, blockLength, version);
    const std::vector<QRBlock> correctionBlocks =
        getCorrectionBlocksArray(level, dataBlocks, blockLength, version);
    bits = getBitsForBitmapMatrix(level, dataBlocks, correctionBlocks, blockLength, version);
    versionIndex = version;
    return true;
}
