#include "resampler/dsp_kernels.h"

#include <cmath>
#include <cstdlib>

namespace avir {

namespace {

constexpr double kPi = 3.14159265358979323846;

}  // namespace

CSineGen::CSineGen(double step, double phase)
    : current(std::sin(phase)), previous(std::sin(phase - step)), twoCos(2.0 * std::cos(step)) {}

double CSineGen::generate() {
    const double value = current;
    current = twoCos * current - previous;
    previous = value;
    return value;
}

CDSPWindowGenPeakedCosine::CDSPWindowGenPeakedCosine(double alpha, double halfLength)
    : alpha(alpha), halfLength(halfLength), cosine(kPi / (2.0 * halfLength), kPi / 2.0) {}

double CDSPWindowGenPeakedCosine::generate() {
    const double ratio = n / halfLength;
    ++n;
    return cosine.generate() * (1.0 - std::pow(ratio, alpha));
}

CDSPPeakedCosineLPF::CDSPPeakedCosineLPF(double halfLength, double cutoff, double alpha)
    : halfLength(halfLength), cutoff(cutoff), alpha(alpha) {}

int CDSPPeakedCosineLPF::centre() const {
    const int reach = static_cast<int>(std::ceil(halfLength)) - 1;
    return reach > 0 ? reach : 0;
}

std::vector<double> CDSPPeakedCosineLPF::generateLPF(double gain) const {
    const int c = centre();
    std::vector<double> taps(2 * c + 1);
    CDSPWindowGenPeakedCosine window(alpha, halfLength);
    CSineGen sine(cutoff, cutoff);
    taps[c] = cutoff * window.generate() / kPi;
    for (int n = 1; n <= c; ++n) {
        const double value = sine.generate() * window.generate() / (n * kPi);
        taps[c + n] = value;
        taps[c - n] = value;
    }
    normalizeFIRFilter(taps, gain);
    return taps;
}

void normalizeFIRFilter(std::vector<double>& taps, double sum) {
    double total = 0.0;
    for (double tap : taps) {
        total += tap;
    }
    if (total == 0.0) {
        return;
    }
    const double factor = sum / total;
    for (double& tap : taps) {
        tap *= factor;
    }
}

void optimizeFIRFilter(std::vector<double>& taps, double threshold) {
    const size_t half = taps.size() / 2;
    size_t cut = 0;
    while (cut < half && std::abs(taps[cut]) < threshold) {
        ++cut;
    }
    taps.erase(taps.end() - static_cast<long>(cut), taps.end());
    taps.erase(taps.begin(), taps.begin() + static_cast<long>(cut));
}

double kernelResponse(const std::vector<double>& taps, double w) {
    const int c = static_cast<int>(taps.size() / 2);
    double dc = taps[c];
    double value = taps[c];
    for (int n = 1; n <= c; ++n) {
        const double pair = taps[c - n] + taps[c + n];
        dc += pair;
        value += pair * std::cos(w * n);
    }
    return dc != 0.0 ? value / dc : 1.0;
}

}  // namespace avir
