#include "BarcodeLib/pdf417/pdf417_reed_solomon.h"

#include "BarcodeLib/errors/barcode_exception.h"
#include "BarcodeLib/pdf417/strategy_pdf417.h"

namespace BarcodeVelko {

std::vector<uint16_t> reedSolomon929(const std::vector<uint16_t>& data, const uint16_t* generator,
                                     size_t k) {
    // registers[0] holds the highest degree of the running remainder.
    std::vector<unsigned> registers(k, 0);
    for (uint16_t codeword : data) {
        const unsigned feedback = GF929::add(registers[0], codeword);
        for (size_t i = 0; i < k; ++i) {
            const unsigned next = i + 1 < k ? registers[i + 1] : 0;
            registers[i] = GF929::subtract(next, GF929::multiply(generator[k - 1 - i], feedback));
        }
    }
    std::vector<uint16_t> check;
    check.reserve(k);
    for (unsigned value : registers) {
        check.push_back(static_cast<uint16_t>(GF929::negate(value)));
    }
    return check;
}

void StrategyPDF417::calcEC(const Codewords& codewords, unsigned level, Codewords& correction) {
    if (level >= kLevelCount) {
        throw BarcodeException::Unexpected();
    }
    correction = reedSolomon929(codewords, g_apuECL[level], size_t(2) << level);
}

}  // namespace BarcodeVelko
