// Prints the EAN-13 that zxing-cpp reads in a PNG file; nothing when it reads none.
#include <lodepng.h>

#include <iostream>

#include "tests/support/scan_harness.h"

int main(int argc, char** argv) {
    std::vector<unsigned char> png;
    if (argc != 2 || lodepng::load_file(png, argv[1]) != 0) {
        return 2;
    }
    std::cout << VelkoTest::scan(VelkoTest::decodePng(png), ZXing::BarcodeFormat::EAN13) << "\n";
    return 0;
}
