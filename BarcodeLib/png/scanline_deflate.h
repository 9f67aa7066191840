#pragma once

#include <cstddef>
#include <vector>

namespace BarcodeVelko {

// The four bytes of value, high first, as PNG and zlib write their numbers.
void putBigEndian(std::vector<unsigned char>& out, unsigned value);

// A zlib stream of PNG scanlines of a few colours, made in one pass without a match finder: a
// byte is copied from the line above or repeated from the byte before, else written as it is,
// all in deflate's fixed codes. A barcode's lines mostly repeat the line above, so this comes
// close to a general deflate at a fraction of its cost, which for a small picture is mostly the
// setting up of its tables.
class ScanlineDeflate {
public:
    static std::vector<unsigned char> compress(const unsigned char* lines, std::size_t size,
                                               std::size_t lineBytes);
};

}  // namespace BarcodeVelko
