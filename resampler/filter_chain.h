#pragma once

#include <vector>

#include "resampler/frac_filter_bank.h"

// The chain of filter steps that takes one line of a direction from its source length to its
// new length. Each step is the same operation: every output sample is the dot product of a
// run of consecutive input samples with one of the step's tap sets.
namespace avir {

// The eleven design values, in their fixed order.
struct CImageResizerParams {
    double CorrFltAlpha = 1.0;         // correction filter: window exponent
    double CorrFltLen = 6.3077;        // correction filter: length
    double IntFltAlpha = 2.27825;      // interpolation bank: window exponent
    double IntFltCutoff = 0.75493;     // interpolation bank: cutoff
    double IntFltLen = 18.0;           // interpolation bank: length
    double LPFltAlpha = 3.40127;       // low-pass at a given cutoff: window exponent
    double LPFltBaseLen = 7.78;        // low-pass at a given cutoff: length
    double LPFltCutoffMult = 0.78797;  // low-pass at a given cutoff: cutoff
    double HBFltAlpha = 1.75395;       // low-pass of a downsampling step: window exponent
    double HBFltCutoff = 0.40356;      // low-pass of a downsampling step: cutoff
    double HBFltLen = 22.0;            // low-pass of a downsampling step: length
};

enum class StepKind { Upsample, Downsample, Resize, Correction };

struct CImageResizerFilterStep {
    StepKind kind = StepKind::Correction;
    // Samples out for one in (Upsample) or in for one out (Downsample); 1 otherwise.
    int factor = 1;
    // The designed low-pass kernel, odd and symmetric, at the rate of the step's input
    // (Downsample, Correction) or output (Upsample); empty for Resize.
    std::vector<double> kernel;

    int inLength = 0;
    int outLength = 0;
    int tapCount = 0;
    // Tap sets of tapCount taps each; output o takes set[o] against the input samples from
    // first[o] on. first[o] may lie before 0 or run past the end: the input is extended by
    // repeating its end samples.
    std::vector<float> taps;
    std::vector<int> first;
    std::vector<int> set;

    // How far the step reads before the start and after the end of its input.
    int reachBefore = 0;
    int reachAfter = 0;
};

struct LineChain {
    int srcLength = 0;
    int dstLength = 0;
    // Output sample i is centred on source position offset + i * k.
    double k = 0.0;
    double offset = 0.0;
    std::vector<CImageResizerFilterStep> steps;

    // Multiply-adds for one line of one element.
    double calcComplexity() const;
};

// The cheapest of the chains for this length change; both lengths at least 1.
LineChain buildFilterSteps(int srcLength, int dstLength, const CImageResizerParams& params,
                           const CDSPFracFilterBankLin& bank);

}  // namespace avir
