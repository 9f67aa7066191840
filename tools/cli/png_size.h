#pragma once

#include <vector>

namespace VelkoCli {

// The width and height in a PNG's header, read without decoding, so that a run that only writes
// its picture needs no PNG decoder; false when the bytes don't open as a PNG does.
bool pngSize(const std::vector<unsigned char>& png, unsigned& width, unsigned& height);

}  // namespace VelkoCli
