#include "resampler/image_resizer.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace avir {

namespace {

// Output rows of the column pass go to bytes this many at a time.
constexpr int kRowsAtOnce = 16;

// A line of samples of `elements` floats each, with room for `margin` samples on either side
// that repeat its end samples. Left uninitialised: every value is written before it is read.
struct LineBuffer {
    std::unique_ptr<float[]> storage;
    int margin = 0;
    size_t elements = 0;

    LineBuffer(int capacity, int margin, size_t elements)
        : storage(new float[(static_cast<size_t>(capacity) + 2 * margin) * elements]),
          margin(margin),
          elements(elements) {}

    float* sample(int index) { return storage.get() + (index + margin) * elements; }

    void repeatEnds(const CImageResizerFilterStep& step) {
        for (int i = 1; i <= step.reachBefore; ++i) {
            std::copy(sample(0), sample(1), sample(-i));
        }
        for (int i = 0; i < step.reachAfter; ++i) {
            std::copy(sample(step.inLength - 1), sample(step.inLength), sample(step.inLength + i));
        }
    }
};

// dst += tap * src. Blocks of a fixed length, on arrays that don't overlap, become vector
// instructions even where the compiler vectorizes only the cheapest loops.
void addScaled(float* __restrict dst, const float* __restrict src, float tap, size_t count) {
    constexpr size_t kBlock = 16;
    size_t e = 0;
    for (; e + kBlock <= count; e += kBlock) {
        for (size_t i = 0; i < kBlock; ++i) {
            dst[e + i] += tap * src[e + i];
        }
    }
    for (; e < count; ++e) {
        dst[e] += tap * src[e];
    }
}

// Outputs begin to end of the step, the first of them at out; the input's ends are repeated.
void runStep(const CImageResizerFilterStep& step, LineBuffer& in, float* out, int begin, int end) {
    const size_t elements = in.elements;
    const int tapCount = step.tapCount;
    for (int o = begin; o < end; ++o) {
        const float* taps = &step.taps[static_cast<size_t>(step.set[o]) * tapCount];
        const float* src = in.sample(step.first[o]);
        float* dst = out + (o - begin) * elements;
        if (elements == 4) {
            // A pixel of four channels: one accumulator a channel.
            float sum0 = 0.0f, sum1 = 0.0f, sum2 = 0.0f, sum3 = 0.0f;
            for (int t = 0; t < tapCount; ++t, src += 4) {
                sum0 += taps[t] * src[0];
                sum1 += taps[t] * src[1];
                sum2 += taps[t] * src[2];
                sum3 += taps[t] * src[3];
            }
            dst[0] = sum0;
            dst[1] = sum1;
            dst[2] = sum2;
            dst[3] = sum3;
        } else {
            // A whole row of pixels at once, for the columns.
            std::fill(dst, dst + elements, 0.0f);
            for (int t = 0; t < tapCount; ++t, src += elements) {
                addScaled(dst, src, taps[t], elements);
            }
        }
    }
}

// Two buffers that the steps of a chain write in turn, the source in the first; each as long
// as the longest line it ever holds. The last step writes elsewhere.
struct ChainBuffers {
    std::unique_ptr<LineBuffer> line[2];

    ChainBuffers(const LineChain& chain, size_t elements) {
        int margin = 0;
        int capacity[2] = {chain.srcLength, 1};
        for (size_t s = 0; s < chain.steps.size(); ++s) {
            const CImageResizerFilterStep& step = chain.steps[s];
            margin = std::max({margin, step.reachBefore, step.reachAfter});
            if (s + 1 < chain.steps.size()) {
                capacity[(s + 1) % 2] = std::max(capacity[(s + 1) % 2], step.outLength);
            }
        }
        line[0] = std::make_unique<LineBuffer>(capacity[0], margin, elements);
        line[1] = std::make_unique<LineBuffer>(capacity[1], margin, elements);
    }

    // Runs all steps but the last on the line in the first buffer; gives the last step's
    // input, ready to be read.
    LineBuffer& runAllButLast(const LineChain& chain) {
        int current = 0;
        for (size_t s = 0; s + 1 < chain.steps.size(); ++s) {
            const CImageResizerFilterStep& step = chain.steps[s];
            line[current]->repeatEnds(step);
            runStep(step, *line[current], line[1 - current]->sample(0), 0, step.outLength);
            current = 1 - current;
        }
        line[current]->repeatEnds(chain.steps.back());
        return *line[current];
    }
};

}  // namespace

void CImageResizerDithererDefINL::dither(const float* values, unsigned char* bytes, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        const float value = std::min(255.0f, std::max(0.0f, values[i]));
        bytes[i] = static_cast<unsigned char>(value + 0.5f);
    }
}

CImageResizer::CImageResizer(const CImageResizerParams& params)
    : designParams(params),
      bank(kBitDepth, params.IntFltLen * 0.5, params.IntFltCutoff, params.IntFltAlpha) {}

void CImageResizer::resizeImage(const unsigned char* src, int srcWidth, int srcHeight,
                                int srcScanlineSize, unsigned char* dst, int newWidth,
                                int newHeight, int elCount) const {
    if (!src || !dst || srcWidth <= 0 || srcHeight <= 0 || newWidth <= 0 || newHeight <= 0 ||
        elCount <= 0) {
        return;
    }
    const size_t pixel = static_cast<size_t>(elCount);
    const size_t srcPitch = srcScanlineSize > 0 ? static_cast<size_t>(srcScanlineSize)
                                                : static_cast<size_t>(srcWidth) * pixel;
    const LineChain across = buildFilterSteps(srcWidth, newWidth, designParams, bank);
    const LineChain down = buildFilterSteps(srcHeight, newHeight, designParams, bank);

    // The rows go straight into the column pass's first buffer, whose samples are whole rows.
    const size_t rowElements = static_cast<size_t>(newWidth) * pixel;
    ChainBuffers columns(down, rowElements);
    {
        ChainBuffers row(across, pixel);
        const CImageResizerFilterStep& last = across.steps.back();
        for (int y = 0; y < srcHeight; ++y) {
            const unsigned char* bytes = src + y * srcPitch;
            std::copy(bytes, bytes + srcWidth * pixel, row.line[0]->sample(0));
            runStep(last, row.runAllButLast(across), columns.line[0]->sample(y), 0, last.outLength);
        }
    }
    LineBuffer& in = columns.runAllButLast(down);
    const CImageResizerFilterStep& last = down.steps.back();
    std::vector<float> rows(kRowsAtOnce * rowElements);
    for (int y = 0; y < newHeight; y += kRowsAtOnce) {
        const int end = std::min(newHeight, y + kRowsAtOnce);
        runStep(last, in, rows.data(), y, end);
        CImageResizerDithererDefINL::dither(rows.data(), dst + y * rowElements,
                                            (end - y) * rowElements);
    }
}

}  // namespace avir
