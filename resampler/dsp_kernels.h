#pragma once

#include <vector>

// The filter design that every kernel of the resampler shares: the peaked cosine window and the
// windowed-sinc low-pass built on it. Design runs in double; the chain filters in float.
namespace avir {

// sin(phase), sin(phase + step), sin(phase + 2 * step), ... by the two-term recurrence, so a
// long kernel costs one multiplication a value instead of a call to sin.
class CSineGen {
public:
    CSineGen(double step, double phase);
    double generate();

private:
    double current;
    double previous;
    double twoCos;
};

// w(n) = cos(n * pi / (2 * L)) * (1 - (n / L) ^ alpha) for n = 0, 1, 2, ...: a cosine bell
// whose exponent sharpens its shoulder.
class CDSPWindowGenPeakedCosine {
public:
    CDSPWindowGenPeakedCosine(double alpha, double halfLength);
    double generate();

private:
    double alpha;
    double halfLength;
    CSineGen cosine;
    int n = 0;
};

// A symmetric low-pass kernel: cutoff fc in radians a sample, half-length L in samples, taps
// 2 * (ceil(L) - 1) + 1 with the centre in the middle.
class CDSPPeakedCosineLPF {
public:
    CDSPPeakedCosineLPF(double halfLength, double cutoff, double alpha);
    int tapCount() const { return 2 * (centre() + 1) - 1; }
    int centre() const;
    // The taps, scaled so that they add up to gain.
    std::vector<double> generateLPF(double gain) const;

private:
    double halfLength;
    double cutoff;
    double alpha;
};

// Scales the taps so that they add up to sum.
void normalizeFIRFilter(std::vector<double>& taps, double sum);

// Drops as many taps from both ends of a symmetric kernel as stand before the first one of at
// least threshold in magnitude.
void optimizeFIRFilter(std::vector<double>& taps, double threshold);

// The response of a symmetric odd-length kernel at w radians a sample, against its response at
// 0; 1 for a kernel that adds up to 0.
double kernelResponse(const std::vector<double>& taps, double w);

}  // namespace avir
