#pragma once

#include <cstddef>
#include <vector>

// Interpolation at any fractional position: one short filter for each of a fixed number of
// delays between two samples, all cut from one long windowed-sinc kernel.
namespace avir {

class CDSPFracFilterBankLin {
public:
    // The delay count that keeps the interpolation error below the noise of a result of
    // bitDepth bits.
    static int fracCount(int bitDepth);

    // halfLength in samples, cutoff against the Nyquist frequency, and the window's exponent;
    // all filters are made here, each scaled to a sum of 1.
    CDSPFracFilterBankLin(int bitDepth, double halfLength, double cutoff, double alpha);

    int fracCount() const { return count; }
    // Every filter reaches from 1 - reach() to reach() samples around the sample at or before
    // the position: tapCount() taps.
    int reach() const { return filterReach; }
    int tapCount() const { return 2 * filterReach; }
    // The taps for the delay index / fracCount() of a sample (0 <= index < fracCount()).
    const float* getFilter(int index) const {
        return &filters[static_cast<size_t>(index) * tapCount()];
    }
    // The source kernel as designed, count taps a sample.
    const std::vector<double>& kernel() const { return source; }
    // The response of the interpolation at w radians a sample, against its response at 0.
    double response(double w) const;

private:
    int count;
    int filterReach;
    std::vector<double> source;
    std::vector<float> filters;
};

}  // namespace avir
