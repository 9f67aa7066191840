#include "resampler/filter_chain.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "resampler/dsp_kernels.h"

namespace avir {

namespace {

constexpr double kPi = 3.14159265358979323846;

// A low-pass step downsamples by at most this; a larger reduction first goes through steps
// that only downsample, by this factor each.
constexpr int kMaxSingleFactor = 16;
// The correction filter is designed from the gains at 65 frequencies from 0 to pi.
constexpr int kCorrectionBands = 64;
constexpr double kCorrectionThreshold = 1e-5;
// No band is raised by more than this, so that what is left of a stop band stays small.
constexpr double kMaxCorrectionGain = 2.0;

std::vector<double> lowPass(double halfLength, double cutoff, double alpha) {
    return CDSPPeakedCosineLPF(halfLength, cutoff, alpha).generateLPF(1.0);
}

// A low-pass at cutoff c against the Nyquist frequency of the step's input; for upsampling by r
// it runs at the output rate, r times longer and with the cutoff r times lower.
std::vector<double> lowPassAt(const CImageResizerParams& params, double c, int r = 1) {
    return lowPass(params.LPFltBaseLen * 0.25 / c * r, params.LPFltCutoffMult * kPi * c / r,
                   params.LPFltAlpha);
}

// The low-pass of a step that only downsamples by r, with a wider transition band.
std::vector<double> lowPassForDownsampling(const CImageResizerParams& params, int r) {
    const double c = 2.0 / r;
    return lowPass(params.HBFltLen * 0.5 / c, params.HBFltCutoff * kPi * c, params.HBFltAlpha);
}

// How far the step reads beyond either end of its input, once its outputs are laid out.
void setReach(CImageResizerFilterStep& step) {
    for (int f : step.first) {
        step.reachBefore = std::max(step.reachBefore, -f);
        step.reachAfter = std::max(step.reachAfter, f + step.tapCount - step.inLength);
    }
}

CImageResizerFilterStep upsampleStep(std::vector<double> kernel, int r, int inLength) {
    CImageResizerFilterStep step;
    step.kind = StepKind::Upsample;
    step.factor = r;
    step.inLength = inLength;
    step.outLength = inLength * r;
    // Output r * j + phase gathers input j + m through kernel tap M + r * m - phase.
    const int m = static_cast<int>(kernel.size() / 2);
    const int low = -(m / r);
    const int high = (r - 1 + m) / r;
    step.tapCount = high - low + 1;
    step.taps.assign(static_cast<size_t>(r) * step.tapCount, 0.0f);
    for (int phase = 0; phase < r; ++phase) {
        std::vector<double> taps(step.tapCount, 0.0);
        for (int i = low; i <= high; ++i) {
            const int index = m + r * i - phase;
            if (index >= 0 && index < static_cast<int>(kernel.size())) {
                taps[i - low] = kernel[index];
            }
        }
        // Each phase on its own adds up to 1, so that a flat line stays exactly flat.
        normalizeFIRFilter(taps, 1.0);
        std::copy(taps.begin(), taps.end(), step.taps.begin() + phase * step.tapCount);
    }
    for (int o = 0; o < step.outLength; ++o) {
        step.first.push_back(o / r + low);
        step.set.push_back(o % r);
    }
    step.kernel = std::move(kernel);
    setReach(step);
    return step;
}

// Every factor-th sample of the filtered input; a factor of 1 only filters.
CImageResizerFilterStep downsampleStep(std::vector<double> kernel, int factor, int inLength,
                                       StepKind kind = StepKind::Downsample) {
    CImageResizerFilterStep step;
    step.kind = kind;
    step.factor = factor;
    step.inLength = inLength;
    step.outLength = (inLength - 1) / factor + 1;
    step.tapCount = static_cast<int>(kernel.size());
    step.taps.assign(kernel.begin(), kernel.end());
    const int m = step.tapCount / 2;
    for (int o = 0; o < step.outLength; ++o) {
        step.first.push_back(o * factor - m);
        step.set.push_back(0);
    }
    step.kernel = std::move(kernel);
    setReach(step);
    return step;
}

// Output i from position (offset + i * k) * rate of the input, by the nearest delay of the
// bank; only the delays in use are copied into the step.
CImageResizerFilterStep resizeStep(const LineChain& chain, double rate, int inLength,
                                   const CDSPFracFilterBankLin& bank) {
    CImageResizerFilterStep step;
    step.kind = StepKind::Resize;
    step.inLength = inLength;
    step.outLength = chain.dstLength;
    step.tapCount = bank.tapCount();
    const int count = bank.fracCount();
    std::vector<int> usedFrac(count, -1);
    for (int i = 0; i < chain.dstLength; ++i) {
        const double position = (chain.offset + i * chain.k) * rate;
        int base = static_cast<int>(std::floor(position));
        int delay = static_cast<int>(std::lround((position - base) * count));
        if (delay == count) {
            ++base;
            delay = 0;
        }
        if (usedFrac[delay] < 0) {
            usedFrac[delay] = static_cast<int>(step.taps.size()) / step.tapCount;
            const float* filter = bank.getFilter(delay);
            step.taps.insert(step.taps.end(), filter, filter + step.tapCount);
        }
        step.first.push_back(base - (bank.reach() - 1));
        step.set.push_back(usedFrac[delay]);
    }
    setReach(step);
    return step;
}

// The response of the steps before the resize step and of the bank, at w radians a sample of
// a rate with `ratio` samples of the resize step's input to one of its own.
double chainResponse(const LineChain& chain, const CDSPFracFilterBankLin& bank, double ratio,
                     double w) {
    double at = w / ratio;
    double response = bank.response(at);
    for (auto step = chain.steps.rbegin(); step != chain.steps.rend(); ++step) {
        if (step->kind == StepKind::Downsample) {
            // Its kernel runs at its input rate, factor times faster than its output.
            at /= step->factor;
        }
        response *= kernelResponse(step->kernel, at);
    }
    return response;
}

// Evens out the pass band that the other steps leave: a short filter built from the inverse of
// their response, band by band, at a rate with `ratio` samples of the resize step's input to
// one of its own. edge is the top of the pass band at that rate; above it the chain is meant to
// cut, and the gain stays 1.
std::vector<double> correctionKernel(const LineChain& chain, const CImageResizerParams& params,
                                     const CDSPFracFilterBankLin& bank, double ratio, double edge) {
    std::vector<double> gains(kCorrectionBands + 1, 1.0);
    for (int b = 0; b <= kCorrectionBands; ++b) {
        const double w = kPi * b / kCorrectionBands;
        if (w > edge) {
            break;
        }
        const double response = chainResponse(chain, bank, ratio, w);
        gains[b] = response > 1.0 / kMaxCorrectionGain ? 1.0 / response : kMaxCorrectionGain;
    }
    // Band b covers the frequencies halfway to its neighbours: the sum of the differences of
    // ideal low-passes at the band edges, under one window.
    const int centre = CDSPPeakedCosineLPF(params.CorrFltLen, kPi, params.CorrFltAlpha).centre();
    std::vector<double> taps(2 * centre + 1, 0.0);
    CDSPWindowGenPeakedCosine window(params.CorrFltAlpha, params.CorrFltLen);
    for (int n = 0; n <= centre; ++n) {
        double sum = 0.0;
        double lowEdge = 0.0;
        for (int b = 0; b <= kCorrectionBands; ++b) {
            const double highEdge = std::min(kPi, kPi * (b + 0.5) / kCorrectionBands);
            sum += gains[b] * (n == 0 ? highEdge - lowEdge
                                      : (std::sin(highEdge * n) - std::sin(lowEdge * n)) / n);
            lowEdge = highEdge;
        }
        const double value = sum / kPi * window.generate();
        taps[centre + n] = value;
        taps[centre - n] = value;
    }
    optimizeFIRFilter(taps, kCorrectionThreshold);
    normalizeFIRFilter(taps, 1.0);
    return taps;
}

LineChain buildChain(int srcLength, int dstLength, const CImageResizerParams& params,
                     const CDSPFracFilterBankLin& bank, bool severalSteps) {
    LineChain chain;
    chain.srcLength = srcLength;
    chain.dstLength = dstLength;
    if (dstLength > srcLength) {
        // Enlarging: the first and the last samples of both lines coincide.
        chain.k = static_cast<double>(srcLength - 1) / (dstLength - 1);
    } else {
        // Otherwise the two lines cover the same length.
        chain.k = static_cast<double>(srcLength) / dstLength;
        chain.offset = (chain.k - 1.0) / 2.0;
    }

    int length = srcLength;
    double rate = 1.0;
    if (chain.k < 2.0) {
        // Twice the samples first, so that the bank interpolates well below its cutoff.
        const double c = chain.k <= 1.0 ? 1.0 : 1.0 / chain.k;
        chain.steps.push_back(upsampleStep(lowPassAt(params, c, 2), 2, length));
        rate = 2.0;
        length = chain.steps.back().outLength;
    } else {
        double c = 1.0 / chain.k;
        int f = static_cast<int>(std::floor(0.5 / c));
        while (f > kMaxSingleFactor || (severalSteps && f >= 2)) {
            const int r = std::min(f, kMaxSingleFactor);
            chain.steps.push_back(downsampleStep(lowPassForDownsampling(params, r), r, length));
            length = chain.steps.back().outLength;
            c *= r;
            rate /= r;
            f = static_cast<int>(std::floor(0.5 / c));
        }
        f = std::max(f, 1);
        chain.steps.push_back(downsampleStep(lowPassAt(params, c), f, length));
        rate /= f;
        length = chain.steps.back().outLength;
    }
    // The correction runs at the slower of the two rates around the resize step, where its few
    // taps reach furthest.
    const double kIn = chain.k * rate;
    const bool beforeResize = kIn < 1.0;
    const double ratio = beforeResize ? 1.0 : kIn;
    const double edge =
        chain.k > 0.0 ? params.LPFltCutoffMult * kPi * std::min(1.0, chain.k) / kIn * ratio : 0.0;
    std::vector<double> correction = correctionKernel(chain, params, bank, ratio, edge);
    CImageResizerFilterStep resize = resizeStep(chain, rate, length, bank);
    if (beforeResize) {
        chain.steps.push_back(
            downsampleStep(std::move(correction), 1, length, StepKind::Correction));
        chain.steps.push_back(std::move(resize));
    } else {
        chain.steps.push_back(std::move(resize));
        chain.steps.push_back(
            downsampleStep(std::move(correction), 1, dstLength, StepKind::Correction));
    }
    return chain;
}

}  // namespace

double LineChain::calcComplexity() const {
    double cost = 0.0;
    for (const CImageResizerFilterStep& step : steps) {
        cost += static_cast<double>(step.outLength) * step.tapCount;
    }
    return cost;
}

LineChain buildFilterSteps(int srcLength, int dstLength, const CImageResizerParams& params,
                           const CDSPFracFilterBankLin& bank) {
    LineChain best = buildChain(srcLength, dstLength, params, bank, false);
    if (best.k >= 4.0) {
        // Several smaller steps may cost less than one long filter.
        LineChain several = buildChain(srcLength, dstLength, params, bank, true);
        if (several.calcComplexity() < best.calcComplexity()) {
            best = std::move(several);
        }
    }
    return best;
}

}  // namespace avir
