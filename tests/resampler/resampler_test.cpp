#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "resampler/dsp_kernels.h"
#include "resampler/filter_chain.h"
#include "resampler/image_resizer.h"

// Properties the resampler must keep whatever its filters: a constant stays exact, an edge keeps
// its ends and its sides, the pass band passes and aliases stop; and its kernels against their
// formula evaluated directly.
namespace {

using avir::CImageResizer;

constexpr double kPi = 3.14159265358979323846;

double peakedCosine(double n, double halfLength, double alpha) {
    return std::cos(n * kPi / (2 * halfLength)) * (1 - std::pow(std::abs(n) / halfLength, alpha));
}

double windowedSinc(double n, double halfLength, double cutoff, double alpha) {
    const double sinc = n == 0 ? cutoff / kPi : std::sin(cutoff * n) / (kPi * n);
    return std::abs(n) < halfLength ? sinc * peakedCosine(n, halfLength, alpha) : 0.0;
}

std::vector<unsigned char> resize(const std::vector<unsigned char>& src, int w, int h, int nw,
                                  int nh) {
    std::vector<unsigned char> out(static_cast<size_t>(nw) * nh * 4);
    CImageResizer().resizeImage(src.data(), w, h, 0, out.data(), nw, nh, 4);
    return out;
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

// A hard edge in the middle of a row: the ends keep their values exactly, and the ringing beyond
// 0 and 255 is cut on each side of the edge, never wrapped round to the other side.
TEST(Resampler, AnEdgeKeepsItsEndsAndItsSides) {
    for (const SizeCase& s : kSizes) {
        if (s.w < 8 || s.nw < 2) {
            continue;
        }
        std::vector<unsigned char> src(static_cast<size_t>(s.w) * 4);
        std::fill(src.begin() + src.size() / 2, src.end(), 255);
        const std::vector<unsigned char> got = resize(src, s.w, 1, s.nw, 1);
        const double k = s.nw > s.w ? (s.w - 1.0) / (s.nw - 1.0) : double(s.w) / s.nw;
        const double offset = s.nw > s.w ? 0.0 : (k - 1) / 2;
        EXPECT_EQ(got.front(), 0) << s.note;
        EXPECT_EQ(got.back(), 255) << s.note;
        for (int i = 0; i < s.nw; ++i) {
            const double at = offset + i * k;
            if (at < s.w / 2 - 1) {
                EXPECT_LT(got[i * 4], 128) << s.note << ", pixel " << i;
            } else if (at > s.w / 2) {
                EXPECT_GT(got[i * 4], 127) << s.note << ", pixel " << i;
            }
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
// One resizer through many sizes, twice, so that kept chains are both met again and pushed
// out: every picture as a resizer new to it makes it.
TEST(Resampler, KeptChainsScaleAsNewOnes) {
    const CImageResizer kept;
    for (int round = 0; round < 2; ++round) {
        for (const SizeCase& s : kSizes) {
            std::vector<unsigned char> src(static_cast<size_t>(s.w) * s.h * 4);
            for (size_t i = 0; i < src.size(); ++i) {
                src[i] = static_cast<unsigned char>(i * 37 + i / 7);
            }
            std::vector<unsigned char> out(static_cast<size_t>(s.nw) * s.nh * 4);
            kept.resizeImage(src.data(), s.w, s.h, 0, out.data(), s.nw, s.nh, 4);
            EXPECT_EQ(out, resize(src, s.w, s.h, s.nw, s.nh)) << s.note;
        }
    }
}

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
