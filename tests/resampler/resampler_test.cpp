#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "resampler/dsp_kernels.h"
#include "resampler/filter_chain.h"
#include "resampler/image_resizer.h"

// The resampler against a slow reference in double: each step of a direction's chain applied
// as plainly as it can be written (a zero-stuffed line, direct sums over clamped indices, the
// windowed sinc at the exact fractional position), rows first, then columns.
namespace {

using avir::CImageResizer;
using avir::LineChain;
using avir::StepKind;

constexpr double kPi = 3.14159265358979323846;

double peakedCosine(double n, double halfLength, double alpha) {
    return std::cos(n * kPi / (2 * halfLength)) * (1 - std::pow(std::abs(n) / halfLength, alpha));
}

double windowedSinc(double n, double halfLength, double cutoff, double alpha) {
    const double sinc = n == 0 ? cutoff / kPi : std::sin(cutoff * n) / (kPi * n);
    return std::abs(n) < halfLength ? sinc * peakedCosine(n, halfLength, alpha) : 0.0;
}

double clamped(const std::vector<double>& line, long i) {
    return line[std::clamp<long>(i, 0, static_cast<long>(line.size()) - 1)];
}

long floorDiv(long a, long b) {
    return a >= 0 ? a / b : -((-a + b - 1) / b);
}

std::vector<double> referenceLine(const LineChain& chain, std::vector<double> line) {
    const int src = chain.srcLength;
    const int dst = chain.dstLength;
    const double k = dst > src ? (src - 1.0) / (dst - 1.0) : static_cast<double>(src) / dst;
    const double offset = dst > src ? 0.0 : (k - 1) / 2;
    const avir::CImageResizerParams params;
    double rate = 1;
    for (const avir::CImageResizerFilterStep& step : chain.steps) {
        const std::vector<double>& h = step.kernel;
        const long m = static_cast<long>(h.size() / 2);
        const long r = step.factor;
        std::vector<double> out;
        if (step.kind == StepKind::Upsample) {
            for (long t = 0; t < r * static_cast<long>(line.size()); ++t) {
                double sum = 0, weight = 0;
                for (long tau = -m; tau <= m; ++tau) {
                    if (floorDiv(t + tau, r) * r == t + tau) {
                        sum += h[m + tau] * clamped(line, floorDiv(t + tau, r));
                        weight += h[m + tau];
                    }
                }
                out.push_back(sum / weight);
            }
            rate *= r;
        } else if (step.kind == StepKind::Resize) {
            const double reach = params.IntFltLen / 2;
            for (int i = 0; i < dst; ++i) {
                const double q = (offset + i * k) * rate;
                double sum = 0, weight = 0;
                for (long j = static_cast<long>(std::ceil(q - reach));
                     j <= static_cast<long>(q + reach); ++j) {
                    const double w =
                        windowedSinc(j - q, reach, params.IntFltCutoff * kPi, params.IntFltAlpha);
                    sum += w * clamped(line, j);
                    weight += w;
                }
                out.push_back(sum / weight);
            }
        } else {
            for (long o = 0; o * r < static_cast<long>(line.size()); ++o) {
                double sum = 0;
                for (long tau = -m; tau <= m; ++tau) {
                    sum += h[m + tau] * clamped(line, o * r + tau);
                }
                out.push_back(sum);
            }
            rate /= r;
        }
        line = std::move(out);
    }
    return line;
}

// Every row of a w-wide plane through the chain, the result turned so that columns are rows.
std::vector<double> rowsThenTurn(const std::vector<double>& plane, int w, const LineChain& chain) {
    const int h = static_cast<int>(plane.size()) / w;
    std::vector<double> out(static_cast<size_t>(chain.dstLength) * h);
    for (int y = 0; y < h; ++y) {
        const std::vector<double> line =
            referenceLine(chain, {plane.begin() + y * w, plane.begin() + (y + 1) * w});
        for (int x = 0; x < chain.dstLength; ++x) {
            out[x * h + y] = line[x];
        }
    }
    return out;
}

// The picture rows first, then columns, channel by channel; values not rounded.
std::vector<double> reference(const std::vector<unsigned char>& src, int w, int h, int nw, int nh) {
    const CImageResizer resizer;
    const LineChain across = avir::buildFilterSteps(w, nw, resizer.params(), resizer.fracBank());
    const LineChain down = avir::buildFilterSteps(h, nh, resizer.params(), resizer.fracBank());
    std::vector<double> out(static_cast<size_t>(nw) * nh * 4);
    for (int c = 0; c < 4; ++c) {
        std::vector<double> plane;
        for (size_t i = c; i < src.size(); i += 4) {
            plane.push_back(src[i]);
        }
        plane = rowsThenTurn(rowsThenTurn(plane, w, across), h, down);
        for (size_t i = 0; i < plane.size(); ++i) {
            out[i * 4 + c] = plane[i];
        }
    }
    return out;
}

std::vector<unsigned char> resize(const std::vector<unsigned char>& src, int w, int h, int nw,
                                  int nh) {
    std::vector<unsigned char> out(static_cast<size_t>(nw) * nh * 4);
    CImageResizer().resizeImage(src.data(), w, h, 0, out.data(), nw, nh, 4);
    return out;
}

// Hard-edged blocks of full black and white, different in each channel, with some noise.
std::vector<unsigned char> blocks(int w, int h) {
    std::vector<unsigned char> image(static_cast<size_t>(w) * h * 4);
    uint32_t seed = 12345;
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            for (int c = 0; c < 4; ++c) {
                seed = seed * 1664525u + 1013904223u;
                const bool on = ((x / (c + 2)) + (y / (3 - c % 2))) % 2 == 0;
                image[(y * w + x) * 4 + c] = on ? 255 - (seed >> 29) : (seed >> 29);
            }
        }
    }
    return image;
}

struct SizeCase {
    int w, h, nw, nh;
    const char* note;
};

const SizeCase kSizes[] = {
    {8, 6, 128, 96, "enlarged 16 times"},
    {160, 96, 10, 6, "reduced 16 times"},
    {37, 23, 61, 11, "wider and lower"},
    {50, 40, 43, 39, "reduced by less than 2"},
    {30, 20, 45, 33, "enlarged by less than 2"},
    {64, 16, 400, 20, "64 to 400"},
    {512, 4, 120, 4, "512 to 120"},
    {700, 5, 300, 4, "in two strips of columns"},
    {400, 3, 10, 3, "reduced 40 times: steps of 16 first"},
    {1, 1, 7, 5, "from one pixel"},
    {9, 4, 1, 1, "to one pixel"},
    {1, 1, 1, 1, "one pixel to one"},
    {1, 12, 5, 3, "a source one pixel wide"},
};

// The bank's nearest delay is at most 1/1212 of a sample off and the chain runs in float, so a
// value may round the other way.
constexpr int kTolerance = 1;

// Hard edges ring beyond 0 and 255 in the enlarged cases; those values must be cut, not wrap.
TEST(Resampler, MatchesTheReference) {
    int overshoots[2] = {0, 0};
    for (const SizeCase& s : kSizes) {
        const std::vector<unsigned char> src = blocks(s.w, s.h);
        const std::vector<unsigned char> got = resize(src, s.w, s.h, s.nw, s.nh);
        const std::vector<double> want = reference(src, s.w, s.h, s.nw, s.nh);
        int worst = 0;
        double bias = 0;
        for (size_t i = 0; i < got.size(); ++i) {
            const double cut = std::clamp(want[i], 0.0, 255.0);
            worst = std::max(worst, std::abs(got[i] - static_cast<int>(std::lround(cut))));
            bias += got[i] - cut;
            overshoots[0] += want[i] < -0.5;
            overshoots[1] += want[i] > 255.5;
        }
        EXPECT_LE(worst, kTolerance) << s.note;
        // Rounding that leans one way shows as a mean difference.
        EXPECT_LE(std::abs(bias / got.size()), 0.1) << s.note;
    }
    EXPECT_GT(overshoots[0], 0);
    EXPECT_GT(overshoots[1], 0);
}

TEST(Resampler, ConstantStaysConstantInEveryChannel) {
    const unsigned char colour[4] = {0, 77, 254, 255};
    for (const SizeCase& s : kSizes) {
        std::vector<unsigned char> src(static_cast<size_t>(s.w) * s.h * 4);
        for (size_t i = 0; i < src.size(); ++i) {
            src[i] = colour[i % 4];
        }
        const std::vector<unsigned char> got = resize(src, s.w, s.h, s.nw, s.nh);
        for (size_t i = 0; i < got.size(); ++i) {
            ASSERT_EQ(got[i], colour[i % 4]) << s.note << ", byte " << i;
        }
    }
}

// Stripes across a row at a fraction of the new Nyquist frequency: the pass band comes through
// whole, what lies above the new Nyquist frequency is filtered out instead of folding back.
TEST(Resampler, PassesThePassBandAndStopsAliases) {
    struct Case {
        int w, nw;
        double fraction;   // of the new Nyquist frequency, or of the source's when enlarging
        double low, high;  // the amplitude that comes out
    } cases[] = {
        {512, 120, 0.3, 0.97, 1.03}, {64, 400, 0.3, 0.97, 1.03}, {150, 100, 0.4, 0.95, 1.03},
        {512, 120, 3.5, 0.0, 0.03},  {300, 31, 1.6, 0.0, 0.03},  {1000, 25, 4.4, 0.0, 0.03},
    };
    for (const Case& c : cases) {
        const double k = c.nw > c.w ? (c.w - 1.0) / (c.nw - 1.0) : double(c.w) / c.nw;
        const double offset = c.nw > c.w ? 0.0 : (k - 1) / 2;
        const double source = c.fraction * kPi * std::min(1.0, 1.0 / k);
        std::vector<unsigned char> src(c.w * 4);
        for (int x = 0; x < c.w; ++x) {
            std::fill_n(&src[x * 4], 4, std::lround(127.5 + 100 * std::cos(source * x)));
        }
        const std::vector<unsigned char> got = resize(src, c.w, 1, c.nw, 1);
        double cosine = 0, sine = 0, norm = 0;
        for (int i = c.nw / 4; i < 3 * c.nw / 4; ++i) {
            const double phase = source * (offset + i * k);
            cosine += (got[i * 4] - 127.5) * std::cos(phase);
            sine += (got[i * 4] - 127.5) * std::sin(phase);
            norm += std::cos(phase) * std::cos(phase);
        }
        const double amplitude = std::hypot(cosine, sine) / norm / 100;
        EXPECT_GE(amplitude, c.low) << c.w << " to " << c.nw << " at " << c.fraction;
        EXPECT_LE(amplitude, c.high) << c.w << " to " << c.nw << " at " << c.fraction;
    }
}

// The window by its recurrence, the low-pass kernels and the bank's filters against their
// formula evaluated directly.
TEST(ResamplerDesign, KernelsFollowTheirFormula) {
    struct Case {
        double halfLength, cutoff, alpha;
    } cases[] = {{6.3077, kPi, 1.0},
                 {3.89, 0.394 * kPi, 3.40127},
                 {88, 0.0504 * kPi, 1.75395},
                 {5454, 0.75493 * kPi / 606, 2.27825}};
    for (const Case& c : cases) {
        avir::CDSPWindowGenPeakedCosine window(c.alpha, c.halfLength);
        const std::vector<double> taps =
            avir::CDSPPeakedCosineLPF(c.halfLength, c.cutoff, c.alpha).generateLPF(3.0);
        const int centre = static_cast<int>(std::ceil(c.halfLength)) - 1;
        ASSERT_EQ(taps.size(), static_cast<size_t>(2 * centre + 1)) << c.halfLength;
        double sum = 0;
        for (int n = -centre; n <= centre; ++n) {
            sum += windowedSinc(n, c.halfLength, c.cutoff, c.alpha);
        }
        for (int n = 0; n <= centre; ++n) {
            EXPECT_NEAR(window.generate(), peakedCosine(n, c.halfLength, c.alpha), 1e-9);
            const double want = 3.0 * windowedSinc(n, c.halfLength, c.cutoff, c.alpha) / sum;
            EXPECT_NEAR(taps[centre + n], want, 1e-9);
            EXPECT_EQ(taps[centre + n], taps[centre - n]);
        }
    }
    // At 8 bits: 606 delays of 18 taps, each the kernel at its delay, scaled to a sum of 1.
    const CImageResizer resizer;
    const avir::CDSPFracFilterBankLin& bank = resizer.fracBank();
    ASSERT_EQ(bank.fracCount(), 606);
    ASSERT_EQ(bank.tapCount(), 18);
    for (int delay : {0, 1, 303, 605}) {
        double weight = 0;
        for (int j = -8; j <= 9; ++j) {
            weight += windowedSinc(j - delay / 606.0, 9, 0.75493 * kPi, 2.27825);
        }
        for (int j = -8; j <= 9; ++j) {
            const double want = windowedSinc(j - delay / 606.0, 9, 0.75493 * kPi, 2.27825);
            EXPECT_NEAR(bank.getFilter(delay)[j + 8], want / weight, 1e-6) << delay;
        }
    }
    std::vector<double> trimmed = {1e-6, -2e-6, 0.25, 0.5, 0.25, 3e-6, 1e-6};
    avir::optimizeFIRFilter(trimmed, 1e-5);
    EXPECT_EQ(trimmed, (std::vector<double>{0.25, 0.5, 0.25}));
}

}  // namespace
