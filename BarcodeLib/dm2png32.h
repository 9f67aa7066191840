#pragma once

#include <vector>

namespace BarcodeVelko {

// The bytes of a PNG file, 8-bit RGBA, of width x height pixels of 4 bytes each, rows without
// gaps; bytesPerPixel is taken for the caller's convenience and not consulted. The pixel bytes
// go in unchanged: the low byte of a pixel value is PNG red, the top byte alpha. LodePNG's
// error code goes to error when given; on an error the vector is empty.
std::vector<unsigned char> DM2PNG32(const unsigned char* pixels, unsigned int width,
                                    unsigned int height, unsigned int bytesPerPixel, int* error);

}  // namespace BarcodeVelko
