#include "resampler/frac_filter_bank.h"

#include <algorithm>
#include <cmath>

#include "resampler/dsp_kernels.h"

namespace avir {

namespace {

constexpr double kPi = 3.14159265358979323846;

}  // namespace

int CDSPFracFilterBankLin::fracCount(int bitDepth) {
    const double snr = -6.02 * (bitDepth + 3);
    // Below 9 bits the nearest delay is close enough; deeper results would need linear
    // interpolation between delays, which this bank doesn't do, at the denser count.
    const double count = bitDepth < 9 ? std::ceil(0.33287686 * std::exp(-0.11334583 * snr))
                                      : std::ceil(0.23134052 * std::exp(-0.058062929 * snr));
    return std::max(2, static_cast<int>(count));
}

CDSPFracFilterBankLin::CDSPFracFilterBankLin(int bitDepth, double halfLength, double cutoff,
                                             double alpha)
    : count(fracCount(bitDepth)),
      filterReach(std::max(1, static_cast<int>(std::ceil(halfLength)))) {
    const CDSPPeakedCosineLPF lpf(halfLength * count, cutoff * kPi / count, alpha);
    source = lpf.generateLPF(count);
    const int centre = lpf.centre();
    const int tapsEach = tapCount();
    filters.assign(static_cast<size_t>(count) * tapsEach, 0.0f);
    std::vector<double> taps(tapsEach);
    for (int delay = 0; delay < count; ++delay) {
        // The sample j away from the one before the position lies (j - delay / count) samples
        // from it: kernel tap centre + j * count - delay.
        for (int t = 0; t < tapsEach; ++t) {
            const long index = centre + static_cast<long>(t - (filterReach - 1)) * count - delay;
            taps[t] = index >= 0 && index < static_cast<long>(source.size()) ? source[index] : 0.0;
        }
        normalizeFIRFilter(taps, 1.0);
        std::copy(taps.begin(), taps.end(), filters.begin() + static_cast<long>(delay) * tapsEach);
    }
}

double CDSPFracFilterBankLin::response(double w) const {
    // Every step-th tap is still eight values a sample, dense enough for w up to pi.
    const int step = std::max(1, count / 8);
    const int centre = static_cast<int>(source.size() / 2);
    double dc = source[centre];
    double value = source[centre];
    for (int n = step; n <= centre; n += step) {
        const double pair = source[centre - n] + source[centre + n];
        dc += pair;
        value += pair * std::cos(w * n / count);
    }
    return value / dc;
}

}  // namespace avir
