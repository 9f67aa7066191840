#include "BarcodeLib/code16k/strategy_code16k.h"

namespace BarcodeVelko {

// The start characters of EN 12323 in the order of the rows that they begin (rows 9 to 16
// repeat rows 1 to 8), each followed by the one-module guard bar.
const char StrategyCode16k::g_aszCode16kStart[16][9] = {
    "11100101", "11001101", "11011001", "10000101", "10111001", "10011101", "10100001", "11101001",
    "11100101", "11001101", "11011001", "10000101", "10111001", "10011101", "10100001", "11101001",
};

// The stop characters of EN 12323 in the order of the rows that they end: rows 9 to 16 take the
// stop characters of rows 5 to 8 and then of rows 1 to 4, which tells the two halves apart.
const char StrategyCode16k::g_aszCode16kStop[16][8] = {
    "0001101", "0011001", "0010011", "0111101", "0100011", "0110001", "0101111", "0001011",
    "0100011", "0110001", "0101111", "0001011", "0001101", "0011001", "0010011", "0111101",
};

// Symbol value 106 of EN 12323, widths 2 1 1 1 3 3 from a space.
const char StrategyCode16k::g_szCode16kValue106[12] = "00101000111";

}  // namespace BarcodeVelko
