#include "BarcodeLib/databar/gs1_databar_exp_stack_tables.h"

// clang-format off

// ISO/IEC 24724, GS1 DataBar Expanded: the table of finder pattern sequences, by the number of
// finders (2 to 11).
const int g_aiFinderSequences[kMaxFinders - kMinFinders + 1][kMaxFinders] = {
    {1,  2,  0,  0,  0,  0,  0,  0,  0,  0,  0},
    {1,  4,  3,  0,  0,  0,  0,  0,  0,  0,  0},
    {1,  6,  3,  8,  0,  0,  0,  0,  0,  0,  0},
    {1, 10,  3,  8,  5,  0,  0,  0,  0,  0,  0},
    {1, 10,  3,  8,  7, 12,  0,  0,  0,  0,  0},
    {1, 10,  3,  8,  9, 12, 11,  0,  0,  0,  0},
    {1,  2,  3,  4,  5,  6,  7,  8,  0,  0,  0},
    {1,  2,  3,  4,  5,  6,  7, 10,  9,  0,  0},
    {1,  2,  3,  4,  5,  6,  7, 10, 11, 12,  0},
    {1,  2,  3,  4,  5,  8,  7, 10,  9, 12, 11},
};

// ISO/IEC 24724, GS1 DataBar Expanded: the table of finder patterns A to F; the second of each
// pair is the first one mirrored.
const int g_aiFinderPatterns[kFinderPatternCount][kFinderPatternElements] = {
    {1, 8, 4, 1, 1}, {1, 1, 4, 8, 1},
    {3, 6, 4, 1, 1}, {1, 1, 4, 6, 3},
    {3, 4, 6, 1, 1}, {1, 1, 6, 4, 3},
    {3, 2, 8, 1, 1}, {1, 1, 8, 2, 3},
    {2, 6, 5, 1, 1}, {1, 1, 5, 6, 2},
    {2, 2, 9, 1, 1}, {1, 1, 9, 2, 2},
};

// ISO/IEC 24724, GS1 DataBar Expanded: the table of symbol character value groups.
const GS1DatabarExpStackValueGroup g_aValueGroups[kValueGroupCount] = {
    {   0,   4, 12, 7,  5, 2},
    { 348,  20, 10, 5,  7, 4},
    {1388,  52,  8, 4,  9, 5},
    {2948, 104,  6, 3, 11, 6},
    {3988, 204,  4, 1, 13, 8},
};

// ISO/IEC 24724, GS1 DataBar Expanded: the table of check character weights, 3 to the power k
// modulo 211, by the character's place.
const int g_aiCheckWeights[kWeightRows][kSignElements] = {
    {  1,   3,   9,  27,  81,  32,  96,  77},
    { 20,  60, 180, 118, 143,   7,  21,  63},
    {189, 145,  13,  39, 117, 140, 209, 205},
    {193, 157,  49, 147,  19,  57, 171,  91},
    { 62, 186, 136, 197, 169,  85,  44, 132},
    {185, 133, 188, 142,   4,  12,  36, 108},
    {113, 128, 173,  97,  80,  29,  87,  50},
    {150,  28,  84,  41, 123, 158,  52, 156},
    { 46, 138, 203, 187, 139, 206, 196, 166},
    { 76,  17,  51, 153,  37, 111, 122, 155},
    { 43, 129, 176, 106, 107, 110, 119, 146},
    { 16,  48, 144,  10,  30,  90,  59, 177},
    {109, 116, 137, 200, 178, 112, 125, 164},
    { 70, 210, 208, 202, 184, 130, 179, 115},
    {134, 191, 151,  31,  93,  68, 204, 190},
    {148,  22,  66, 198, 172,  94,  71,   2},
    {  6,  18,  54, 162,  64, 192, 154,  40},
    {120, 149,  25,  75,  14,  42, 126, 167},
    { 79,  26,  78,  23,  69, 207, 199, 175},
    {103,  98,  83,  38, 114, 131, 182, 124},
    {161,  61, 183, 127, 170,  88,  53, 159},
    { 55, 165,  73,   8,  24,  72,   5,  15},
    { 45, 135, 194, 160,  58, 174, 100,  89},
};

// ISO/IEC 24724, general-purpose data: the table of the alphanumeric field, beyond digits and
// capitals.
const GS1DatabarExpStackCharBits g_aAlphaNumericEncodings[6] = {
    {29, "01111"},
    {'*', "111010"}, {',', "111011"}, {'-', "111100"}, {'.', "111101"}, {'/', "111110"},
};

// ISO/IEC 24724, general-purpose data: the table of the ISO/IEC 646 field, beyond digits and
// letters.
const GS1DatabarExpStackCharBits g_aISOEncodings[22] = {
    {29, "01111"},
    {'!', "11101000"}, {'"', "11101001"}, {'%', "11101010"}, {'&', "11101011"},
    {'\'', "11101100"}, {'(', "11101101"}, {')', "11101110"}, {'*', "11101111"},
    {'+', "11110000"}, {',', "11110001"}, {'-', "11110010"}, {'.', "11110011"},
    {'/', "11110100"}, {':', "11110101"}, {';', "11110110"}, {'<', "11110111"},
    {'=', "11111000"}, {'>', "11111001"}, {'?', "11111010"}, {'_', "11111011"},
    {' ', "11111100"},
};
