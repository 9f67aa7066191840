#pragma once

#include <string>
#include <vector>

namespace VelkoCli {

enum class Verdict { Clean, Unreadable, Misread, NotVerifiable };

struct Verification {
    Verdict verdict = Verdict::Unreadable;
    std::string expected;
    std::string read;
    // Why a picture is not verifiable.
    std::string why = "no reader at hand for this symbology";

    // One line for the user: "reads X, expected Y", "unreadable", "not verifiable".
    std::string describe() const;
};

// Reads a written picture back as a scanner reads a label: composited over white, inside the
// quiet zone its symbology asks for, and compares what it reads with what the value means.
// value is the text the symbol was asked to hold (UTF-8, Base64 already decoded); whole when it
// is the symbol's whole text, check digits included, as for a demo value.
Verification verifyPicture(const std::vector<unsigned char>& png, unsigned codeType,
                           const std::string& value, bool whole);

// The digits of the GTIN that a code type holds, check digit included; 0 for other types.
size_t gtinLength(unsigned codeType);

}  // namespace VelkoCli
