#include "resampler/image_resizer.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#if defined(__x86_64__) && defined(__GNUC__)
#include <cpuid.h>
#endif

namespace avir {

namespace {

// The longest target lengths whose chains are kept, and how many: a few small ones.
constexpr int kKeptLength = 1024;
constexpr size_t kKeptChains = 4;

// The column pass works on strips of the target this many pixels wide.
constexpr int kStripPixels = 256;
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

    // The samples that the step reads beyond the ends of its input, where [begin, end) of the
    // input is there and reaches the end in question.
    void repeatEnds(const CImageResizerFilterStep& step, int begin, int end) {
        for (int i = 1; begin == 0 && i <= step.reachBefore; ++i) {
            std::copy(sample(0), sample(1), sample(-i));
        }
        for (int i = 0; end == step.inLength && i < step.reachAfter; ++i) {
            std::copy(sample(end - 1), sample(end), sample(end + i));
        }
    }
};

// dst = the sum over the taps of tap t times the row of `count` values that starts t rows of
// `stride` values after src. Blocks of a fixed length stay in registers through all taps, one
// load a multiply-add, and become vector instructions even where the compiler vectorizes only
// the cheapest loops; a long block keeps enough sums going at once to keep the adders busy.
// Without fused multiply-adds, each sum is the same whatever vectors the compiler picks.
inline __attribute__((always_inline)) void sumRowsIn(float* __restrict dst,
                                                     const float* __restrict src, size_t stride,
                                                     size_t count, const float* taps,
                                                     int tapCount) {
    constexpr size_t kBlock = 64;
    size_t e = 0;
    for (; e + kBlock <= count; e += kBlock) {
        float sums[kBlock] = {};
        for (int t = 0; t < tapCount; ++t) {
            const float tap = taps[t];
            const float* row = src + t * stride + e;
            for (size_t i = 0; i < kBlock; ++i) {
                sums[i] += tap * row[i];
            }
        }
        std::copy(sums, sums + kBlock, dst + e);
    }
    for (; e < count; ++e) {
        float sum = 0.0f;
        for (int t = 0; t < tapCount; ++t) {
            sum += taps[t] * src[t * stride + e];
        }
        dst[e] = sum;
    }
}

#if defined(__x86_64__) && defined(__GNUC__)
__attribute__((target("avx2"))) void sumRowsAvx2(float* dst, const float* src, size_t stride,
                                                 size_t count, const float* taps, int tapCount) {
    sumRowsIn(dst, src, stride, count, taps, tapCount);
}

// Whether the processor and the system take AVX2: asked at the first logo rather than by a
// resolver when the library loads, as cpuid is slow under a hypervisor.
bool hasAvx2() {
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    if (__get_cpuid(1, &a, &b, &c, &d) == 0 || (c & bit_OSXSAVE) == 0 || (c & bit_AVX) == 0) {
        return false;
    }
    unsigned low = 0;
    unsigned high = 0;
    __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    // The system saves the vector registers' upper halves.
    if ((low & 6) != 6) {
        return false;
    }
    return __get_cpuid_count(7, 0, &a, &b, &c, &d) != 0 && (b & bit_AVX2) != 0;
}
#endif

// The column pass, in the widest vectors that the processor has.
void sumRows(float* dst, const float* src, size_t stride, size_t count, const float* taps,
             int tapCount) {
#if defined(__x86_64__) && defined(__GNUC__)
    static const bool avx2 = hasAvx2();
    if (avx2) {
        sumRowsAvx2(dst, src, stride, count, taps, tapCount);
        return;
    }
#endif
    sumRowsIn(dst, src, stride, count, taps, tapCount);
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
            sumRows(dst, src, elements, elements, taps, tapCount);
        }
    }
}

struct Range {
    int begin;
    int end;
};

// The steps of a chain run for the outputs [begin, end) of the last step, with two buffers
// that the steps write in turn, the source in the first, each as long as the longest line it
// ever holds. Each step makes only the outputs that the next one reads.
struct ChainRun {
    const LineChain& chain;
    std::vector<Range> outputs;
    std::unique_ptr<LineBuffer> line[2];

    ChainRun(const LineChain& chain, size_t elements, int begin, int end)
        : chain(chain), outputs(chain.steps.size()) {
        int margin = 0;
        int capacity[2] = {chain.srcLength, 1};
        for (size_t s = chain.steps.size(); s-- > 0;) {
            const CImageResizerFilterStep& step = chain.steps[s];
            outputs[s] = {begin, end};
            // Each output reads from step.first on, and step.first only grows.
            begin = std::max(0, step.first[begin]);
            end = std::min(step.inLength, step.first[end - 1] + step.tapCount);
            margin = std::max({margin, step.reachBefore, step.reachAfter});
            if (s + 1 < chain.steps.size()) {
                capacity[(s + 1) % 2] = std::max(capacity[(s + 1) % 2], step.outLength);
            }
        }
        line[0] = std::make_unique<LineBuffer>(capacity[0], margin, elements);
        line[1] = std::make_unique<LineBuffer>(capacity[1], margin, elements);
    }

    LineBuffer& source() { return *line[0]; }

    // Runs all steps but the last on the source; gives the last step's input, ready to read.
    LineBuffer& runAllButLast() {
        int current = 0;
        Range in = {0, chain.srcLength};
        for (size_t s = 0; s < chain.steps.size(); ++s) {
            const CImageResizerFilterStep& step = chain.steps[s];
            line[current]->repeatEnds(step, in.begin, in.end);
            if (s + 1 == chain.steps.size()) {
                break;
            }
            const Range out = outputs[s];
            runStep(step, *line[current], line[1 - current]->sample(out.begin), out.begin, out.end);
            in = out;
            current = 1 - current;
        }
        return *line[current];
    }

    // The last step's outputs [begin, end) at out, on the line that runAllButLast gave.
    void runLast(LineBuffer& in, float* out, int begin, int end) {
        runStep(chain.steps.back(), in, out, begin, end);
    }
};

}  // namespace

void CImageResizerDithererDefINL::dither(const float* values, unsigned char* bytes, size_t count) {
    size_t i = 0;
#if defined(__SSE2__)
    // Sixteen values a round, each as the loop below makes it: the compares answer the lower
    // bound for NaN as std::max does, and the bounded values fit the saturating packs.
    const __m128 lowest = _mm_setzero_ps();
    const __m128 highest = _mm_set1_ps(255.0f);
    const __m128 half = _mm_set1_ps(0.5f);
    const auto rounded = [&](const float* four) {
        const __m128 value = _mm_min_ps(_mm_max_ps(_mm_loadu_ps(four), lowest), highest);
        return _mm_cvttps_epi32(_mm_add_ps(value, half));
    };
    for (; i + 16 <= count; i += 16) {
        const __m128i low = _mm_packs_epi32(rounded(values + i), rounded(values + i + 4));
        const __m128i high = _mm_packs_epi32(rounded(values + i + 8), rounded(values + i + 12));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes + i), _mm_packus_epi16(low, high));
    }
#endif
    for (; i < count; ++i) {
        const float value = std::min(255.0f, std::max(0.0f, values[i]));
        bytes[i] = static_cast<unsigned char>(value + 0.5f);
    }
}

CImageResizer::CImageResizer(const CImageResizerParams& params)
    : designParams(params),
      bank(kBitDepth, params.IntFltLen * 0.5, params.IntFltCutoff, params.IntFltAlpha) {}

std::shared_ptr<const LineChain> CImageResizer::chain(int srcLength, int dstLength) const {
    const std::pair<int, int> lengths(srcLength, dstLength);
    if (dstLength > kKeptLength) {
        return std::make_shared<const LineChain>(
            buildFilterSteps(srcLength, dstLength, designParams, bank));
    }
    const std::lock_guard<std::mutex> lock(keptMutex);
    for (const auto& [key, found] : kept) {
        if (key == lengths) {
            return found;
        }
    }
    auto made = std::make_shared<const LineChain>(
        buildFilterSteps(srcLength, dstLength, designParams, bank));
    if (kept.size() == kKeptChains) {
        kept.erase(kept.begin());
    }
    kept.emplace_back(lengths, made);
    return made;
}

void CImageResizer::resizeImage(const unsigned char* src, int srcWidth, int srcHeight,
                                int srcScanlineSize, unsigned char* dst, int newWidth,
                                int newHeight, int elCount, int dstScanlineSize) const {
    if (!src || !dst || srcWidth <= 0 || srcHeight <= 0 || newWidth <= 0 || newHeight <= 0 ||
        elCount <= 0) {
        return;
    }
    const size_t pixel = static_cast<size_t>(elCount);
    const size_t srcPitch = srcScanlineSize > 0 ? static_cast<size_t>(srcScanlineSize)
                                                : static_cast<size_t>(srcWidth) * pixel;
    const std::shared_ptr<const LineChain> across = chain(srcWidth, newWidth);
    const std::shared_ptr<const LineChain> down = chain(srcHeight, newHeight);

    // Strips of columns, one after the other, so that the float buffers of the column pass stay
    // small however large the target: each strip's rows go straight into the first buffer of
    // its column pass, whose samples are whole rows of the strip.
    const size_t dstPitch = dstScanlineSize > 0 ? static_cast<size_t>(dstScanlineSize)
                                                : static_cast<size_t>(newWidth) * pixel;
    for (int left = 0; left < newWidth; left += kStripPixels) {
        const int right = std::min(newWidth, left + kStripPixels);
        const size_t rowElements = static_cast<size_t>(right - left) * pixel;
        ChainRun columns(*down, rowElements, 0, newHeight);
        {
            ChainRun row(*across, pixel, left, right);
            for (int y = 0; y < srcHeight; ++y) {
                const unsigned char* bytes = src + y * srcPitch;
                std::copy(bytes, bytes + srcWidth * pixel, row.source().sample(0));
                row.runLast(row.runAllButLast(), columns.source().sample(y), left, right);
            }
        }
        LineBuffer& in = columns.runAllButLast();
        std::vector<float> rows(kRowsAtOnce * rowElements);
        for (int top = 0; top < newHeight; top += kRowsAtOnce) {
            const int bottom = std::min(newHeight, top + kRowsAtOnce);
            columns.runLast(in, rows.data(), top, bottom);
            for (int y = top; y < bottom; ++y) {
                CImageResizerDithererDefINL::dither(rows.data() + (y - top) * rowElements,
                                                    dst + y * dstPitch + left * pixel, rowElements);
            }
        }
    }
}

}  // namespace avir
