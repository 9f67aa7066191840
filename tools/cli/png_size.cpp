#include "tools/cli/png_size.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace VelkoCli {

namespace {

const unsigned char kSignature[] = {137, 'P', 'N', 'G', '\r', '\n', 26, '\n'};
const unsigned char kHeaderType[] = {'I', 'H', 'D', 'R'};
// Where the first chunk's type and the header's fields begin, and where the header chunk ends:
// its 13 bytes of data and its CRC.
constexpr std::size_t kTypeAt = 12;
constexpr std::size_t kWidthAt = 16;
constexpr std::size_t kHeightAt = 20;
constexpr std::size_t kHeaderEnd = 33;

unsigned bigEndian(const std::vector<unsigned char>& bytes, std::size_t at) {
    return unsigned(bytes[at]) << 24 | unsigned(bytes[at + 1]) << 16 |
           unsigned(bytes[at + 2]) << 8 | unsigned(bytes[at + 3]);
}

}  // namespace

bool pngSize(const std::vector<unsigned char>& png, unsigned& width, unsigned& height) {
    if (png.size() < kHeaderEnd ||
        !std::equal(std::begin(kSignature), std::end(kSignature), png.begin()) ||
        !std::equal(std::begin(kHeaderType), std::end(kHeaderType), png.begin() + kTypeAt)) {
        return false;
    }
    width = bigEndian(png, kWidthAt);
    height = bigEndian(png, kHeightAt);
    return width != 0 && height != 0;
}

}  // namespace VelkoCli
