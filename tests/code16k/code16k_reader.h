#pragma once

#include <string>
#include <vector>

#include "tests/support/scan_harness.h"

// A Code 16K reader for the tests, written from EN 12323 on its own: no reader that we have
// reads Code 16K, and it must not share a fault with the encoder it checks. It reads an upright
// symbol of whole-pixel modules from a picture, dark on light.
namespace Code16kTest {

struct Reading {
    std::string error;             // empty when the symbol reads
    unsigned rows = 0;             // from the picture, and the mode character agrees
    unsigned mode = 0;             // the start mode
    std::vector<unsigned> values;  // every symbol value, mode character and checks included
    std::string text;              // the message
};

Reading read(const VelkoTest::Picture& picture);

// The message of the symbol values of a symbol, from the mode character to the pads; the check
// characters are left out. error explains a value that can't stand where it does.
std::string decodeValues(const std::vector<unsigned>& values, std::string& error);

// The two check characters over values, mode character first.
void checkCharacters(const std::vector<unsigned>& values, unsigned& first, unsigned& second);

}  // namespace Code16kTest
