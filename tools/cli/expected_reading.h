#pragma once

#include <string>

namespace VelkoCli {

// How a code type's value turns into what a scanner transmits.
enum class Meaning {
    Text,         // the value itself
    Gtin,         // digits, the GS1 check digit added when the value lacks it
    Interleaved,  // digits and their GS1 check digit, a leading 0 making the count even
    AddOn,        // EAN-13 digits with their check digit, a blank, the add-on
    GS1,          // a bracketed element string as the bracketed form of its elements
};

// What a scanner should read for the value: for GS1 types the bracketed form of the elements
// ("GS1 data " in front, so that plain data that looks the same never matches it). length counts
// the digits of a GTIN, or of the add-on; whole says that the value holds its check digits already.
std::string expectedReading(Meaning meaning, const std::string& value, size_t length, bool whole);

// What a scanner read, in the same form: text with a GS1 symbology identifier becomes the
// bracketed form of its elements.
std::string normalReading(const std::string& symbology, const std::string& text);

// Not empty, and nothing but the digits 0 to 9.
bool allDigits(const std::string& text);

// The GS1 check digit of the digits before it.
char gs1CheckDigit(const std::string& digits);

}  // namespace VelkoCli
