#pragma once

namespace BarcodeVelko {

// Full ASCII as Extended Code 39 and Code 93 share it: each character 0..127 as one character
// of the Code 39 set, or as a shift ($, %, / or +) followed by a capital letter.
extern const char g_aszFullAsciiTable[128][3];

// The entry of c in the table. Throws Unexpected outside 0..127.
const char* fullAsciiPair(wchar_t c);

// text is non-empty and all ASCII. Throws Unexpected for null.
bool isFullAscii(const wchar_t* text);

}  // namespace BarcodeVelko
