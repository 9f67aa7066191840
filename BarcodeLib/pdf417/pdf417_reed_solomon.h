#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace BarcodeVelko {

// Arithmetic in GF(929), the prime field of PDF417's error correction.
namespace GF929 {

constexpr unsigned kOrder = 929;

constexpr unsigned add(unsigned a, unsigned b) {
    return (a % kOrder + b % kOrder) % kOrder;
}
constexpr unsigned negate(unsigned a) {
    return (kOrder - a % kOrder) % kOrder;
}
constexpr unsigned subtract(unsigned a, unsigned b) {
    return add(a, negate(b));
}
constexpr unsigned multiply(unsigned a, unsigned b) {
    return a % kOrder * (b % kOrder) % kOrder;
}

}  // namespace GF929

// The k check codewords of data for the monic generator of degree k whose other coefficients
// are given lowest degree first: the remainder of data(x) * x^k by the generator, negated,
// highest degree first, as a shift register computes it.
std::vector<uint16_t> reedSolomon929(const std::vector<uint16_t>& data, const uint16_t* generator,
                                     size_t k);

}  // namespace BarcodeVelko
