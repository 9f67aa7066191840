#pragma once

#include <string>
#include <vector>

// The field a character of the general-purpose data goes in, or the fields still open to it.
// Flags combine: 6 is alphanumeric or ISO/IEC 646, 7 any of the three.
enum ENCODING_SCHEME {
    SCHEME_NUMERIC = 1,
    SCHEME_ALPHANUMERIC = 2,
    SCHEME_ISO_IEC_646 = 4,
    SCHEME_LAST_DIGIT = 8,
    // A digit behind a separator in a non-numeric run: numeric in any case.
    SCHEME_AFTER_SEPARATOR = 16,
    SCHEME_UNDECIDED = 32,
};

// A run of characters that share their possible fields.
struct EncodingUnit {
    int count;
    ENCODING_SCHEME scheme;
    ENCODING_SCHEME finalScheme;
};

// The binary string of a GS1 DataBar Expanded symbol (ISO/IEC 24724, 7.2.5): the data of an
// element string in bits, a multiple of 12 long. Two encodation methods only: the compressed
// GTIN of an element string that opens with AI 01, and the general-purpose one for all the rest;
// no composite linkage. One object serves one call.
class GS1DatabarExpStackBinaryStringMaker {
public:
    GS1DatabarExpStackBinaryStringMaker() = default;

    // input: identifiers and data without brackets and without the leading FNC1, the byte 29
    // between elements. False for a character with no encoding, a non-digit among the first 16
    // characters of an input that opens with "01", or more than 252 bits; output is then not to
    // be used.
    bool BuildBinaryString(const std::string& input, std::string& output);

private:
    // 1: the compressed GTIN first, 2: general purpose throughout.
    int DetermineEncodingMethod() const;
    bool CheckCompressedFieldDataIsNumeric() const;
    void EncodeDataCompressedFieldMethod_1();
    // 0 when done, -1 for a character with no encoding, -2 for too much data.
    int UniversalCompressionField(size_t start);
    bool DetermineEncodingScheme();
    static bool CheckIllegalChars(char c);
    static bool CheckNumericSchemeApplicable(char c);
    static bool CheckAlphaNumericSchemeApplicable(char c);
    void ApplyEncodingSchemeChangeRules();
    void ProcessNumericSymbol(size_t& pos);
    void ProcessAlphaNumericSymbol(size_t& pos);
    void ProcessISO_IEC_646Symbol(size_t& pos);
    void EncodeSymbolsPairInNumericMode(int first, int second);
    void AddDecimalValueToBinaryString(int value, int bits);
    void UniversalCompressionFieldPadding(size_t length);
    void FillVariableLengthField(int method);

    std::string binaryString;
    std::string inputData;
    std::string generalField;
    std::vector<ENCODING_SCHEME> schemes;
    std::vector<ENCODING_SCHEME> finalSchemes;
    std::vector<EncodingUnit> units;
    ENCODING_SCHEME lastScheme = SCHEME_NUMERIC;
};
