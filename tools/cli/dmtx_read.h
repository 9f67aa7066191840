#pragma once

#include <dmtx.h>

#include <string>

namespace VelkoCli {

// The bytes of the first Data Matrix symbol libdmtx finds in the pixels, laid out as pack says;
// empty when it finds none. libdmtx reads the sizes that zxing-cpp 1.4 can't (144 x 144).
std::string readWithLibdmtx(unsigned char* pixels, int width, int height, DmtxPackOrder pack);

}  // namespace VelkoCli
