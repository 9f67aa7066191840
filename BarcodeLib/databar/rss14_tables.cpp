#include "BarcodeLib/databar/strategy_rss14.h"

namespace BarcodeVelko {

// The finder patterns of GS1 DataBar Omnidirectional in ISO/IEC 24724, values 0 to 8, each
// read from left to right as it stands at the left of the symbol.
const unsigned char StrategyRSS14::g_auFinders[9][5] = {
    {3, 8, 2, 1, 1}, {3, 5, 5, 1, 1}, {3, 3, 7, 1, 1}, {3, 1, 9, 1, 1}, {2, 7, 4, 1, 1},
    {2, 5, 6, 1, 1}, {2, 3, 8, 1, 1}, {1, 5, 7, 1, 1}, {1, 3, 9, 1, 1},
};

// The check sum weights of GS1 DataBar Omnidirectional in ISO/IEC 24724: eight for each of the
// data characters 1 to 4 in turn.
const unsigned char StrategyRSS14::g_auWeights[32] = {
    1,  3,  9,  27, 2,  6,  18, 54, 4,  12, 36, 29, 8,  24, 72, 58,
    16, 48, 65, 37, 32, 17, 51, 74, 64, 34, 23, 69, 49, 68, 46, 59,
};

}  // namespace BarcodeVelko
