#include "BarcodeLib/linear/full_ascii_table.h"

#include <cstdint>

#include "BarcodeLib/errors/barcode_exception.h"

namespace BarcodeVelko {

// clang-format off
const char g_aszFullAsciiTable[128][3] = {
    "%U", "$A", "$B", "$C", "$D", "$E", "$F", "$G",
    "$H", "$I", "$J", "$K", "$L", "$M", "$N", "$O",
    "$P", "$Q", "$R", "$S", "$T", "$U", "$V", "$W",
    "$X", "$Y", "$Z", "%A", "%B", "%C", "%D", "%E",
    " ",  "/A", "/B", "/C", "/D", "/E", "/F", "/G",
    "/H", "/I", "/J", "/K", "/L", "-",  ".",  "/O",
    "0",  "1",  "2",  "3",  "4",  "5",  "6",  "7",
    "8",  "9",  "/Z", "%F", "%G", "%H", "%I", "%J",
    "%V", "A",  "B",  "C",  "D",  "E",  "F",  "G",
    "H",  "I",  "J",  "K",  "L",  "M",  "N",  "O",
    "P",  "Q",  "R",  "S",  "T",  "U",  "V",  "W",
    "X",  "Y",  "Z",  "%K", "%L", "%M", "%N", "%O",
    "%W", "+A", "+B", "+C", "+D", "+E", "+F", "+G",
    "+H", "+I", "+J", "+K", "+L", "+M", "+N", "+O",
    "+P", "+Q", "+R", "+S", "+T", "+U", "+V", "+W",
    "+X", "+Y", "+Z", "%P", "%Q", "%R", "%S", "%T",
};
// clang-format on

const char* fullAsciiPair(wchar_t c) {
    if (static_cast<std::uint32_t>(c) > 127u) {
        throw BarcodeException::Unexpected();
    }
    return g_aszFullAsciiTable[c];
}

bool isFullAscii(const wchar_t* text) {
    if (!text) {
        throw BarcodeException::Unexpected();
    }
    if (!*text) {
        return false;
    }
    for (; *text; ++text) {
        if (static_cast<std::uint32_t>(*text) > 127u) {
            return false;
        }
    }
    return true;
}

}  // namespace BarcodeVelko
