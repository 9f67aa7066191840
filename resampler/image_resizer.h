#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "resampler/filter_chain.h"
#include "resampler/frac_filter_bank.h"

// Scales 8-bit pictures of interleaved channels with a separable windowed-sinc filter chain:
// every row, then every column, in float.
//
//     avir::CImageResizer resizer;
//     std::vector<unsigned char> out(newWidth * newHeight * 4);
//     resizer.resizeImage(logo, width, height, 0, out.data(), newWidth, newHeight, 4);
namespace avir {

// Rounds to the nearest integer and cuts to 0..255; at 8 bits no noise is added.
class CImageResizerDithererDefINL {
public:
    static void dither(const float* values, unsigned char* bytes, size_t count);
};

class CImageResizer {
public:
    // The bit depth of source and result.
    static constexpr int kBitDepth = 8;

    explicit CImageResizer(const CImageResizerParams& params = CImageResizerParams());

    // srcScanlineSize and dstScanlineSize: bytes from one row to the next, 0 for the width
    // times elCount, rows without gaps. Every channel is
    // filtered on its own, alpha like the others. Enlarging a direction makes the first and
    // last pixels of both coincide; shrinking it keeps the areas the same. A size of 0 on
    // either side leaves the target as it is.
    void resizeImage(const unsigned char* src, int srcWidth, int srcHeight, int srcScanlineSize,
                     unsigned char* dst, int newWidth, int newHeight, int elCount,
                     int dstScanlineSize = 0) const;

    const CImageResizerParams& params() const { return designParams; }
    const CDSPFracFilterBankLin& fracBank() const { return bank; }

private:
    // The chain for a length change, designed or kept from before.
    std::shared_ptr<const LineChain> chain(int srcLength, int dstLength) const;

    CImageResizerParams designParams;
    CDSPFracFilterBankLin bank;
    // The last few short chains: designing one costs far more than a small logo's pixels, and
    // pictures in a run bring the same logo at the same size.
    mutable std::mutex keptMutex;
    mutable std::vector<std::pair<std::pair<int, int>, std::shared_ptr<const LineChain>>> kept;
};

}  // namespace avir
