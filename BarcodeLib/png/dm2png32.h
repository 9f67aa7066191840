#pragma once

#include <vector>

namespace BarcodeVelko {

// The bytes of a PNG file of width x height pixels of 4 bytes each, rows without gaps;
// bytesPerPixel is taken for the caller's convenience and not consulted. A picture of up to 256
// colours goes out as a 1- to 8-bit palette or grey, any other as 8-bit RGB or RGBA; each decodes
// to the pixel bytes unchanged: the low byte of a pixel value is PNG red, the top byte alpha. An
// error code in LodePNG's numbering goes to error when given (48 for no pixels, 83 out of
// memory); on an error the vector is empty.
std::vector<unsigned char> DM2PNG32(const unsigned char* pixels, unsigned int width,
                                    unsigned int height, unsigned int bytesPerPixel, int* error);
// The same, with for each row 1 where the caller knows that the row repeats the row above, which
// then isn't compared; a vector of any other length than height is not used.
std::vector<unsigned char> DM2PNG32(const unsigned char* pixels, unsigned int width,
                                    unsigned int height,
                                    const std::vector<unsigned char>& repeatedRows, int* error);

}  // namespace BarcodeVelko
