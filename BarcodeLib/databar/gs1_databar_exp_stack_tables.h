#pragma once

// Constant tables of GS1 DataBar Expanded, ISO/IEC 24724.

// Finder patterns A1, A2, B1, B2, ... F2 are numbered 1 to 12 in the sequences.
constexpr int kFinderPatternCount = 12;
constexpr int kFinderPatternElements = 5;
constexpr int kMaxFinders = 11;
constexpr int kMinFinders = 2;
constexpr int kSignElements = 8;
constexpr int kWeightRows = 23;
constexpr int kValueGroupCount = 5;

// The finders of a symbol in order; row: the number of finders less 2, unused places 0.
extern const int g_aiFinderSequences[kMaxFinders - kMinFinders + 1][kMaxFinders];
// Element widths of each finder pattern, 1 to 12 in row 0 to 11.
extern const int g_aiFinderPatterns[kFinderPatternCount][kFinderPatternElements];

// One group of symbol character values: where it starts, how its value splits into an odd-set
// and an even-set part, and the module counts and widest elements of the two sets.
struct GS1DatabarExpStackValueGroup {
    int firstValue;
    int evenCombinations;
    int oddModules;
    int widestOdd;
    int evenModules;
    int widestEven;
};
extern const GS1DatabarExpStackValueGroup g_aValueGroups[kValueGroupCount];

// Weights of the check character, by the character's place next to its finder.
extern const int g_aiCheckWeights[kWeightRows][kSignElements];

// The bits of a character in the alphanumeric and the ISO/IEC 646 fields of the general-purpose
// data, for the characters that aren't digits or letters; 29 is FNC1.
struct GS1DatabarExpStackCharBits {
    char character;
    const char* bits;
};
extern const GS1DatabarExpStackCharBits g_aAlphaNumericEncodings[6];
extern const GS1DatabarExpStackCharBits g_aISOEncodings[22];
