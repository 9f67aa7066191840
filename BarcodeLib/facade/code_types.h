#pragma once

#include <type_traits>

#include "BarcodeLib/new_or_throw.h"

namespace BarcodeVelko {

class AbstractBarcodeStrategy;

// The code types as the host numbers them.
enum class CodeType : unsigned {
    EAN8 = 0,
    EAN13,
    EAN128,
    Code39,
    Code128,
    Code16K,
    PDF417,
    Standard2of5,
    Interleaved2of5,
    Code39Ext,
    Code93,
    ITF14,
    RSS14,
    Codabar,
    EAN13AddOn2,
    EAN13AddOn5,
    QR,
    GS1DatabarExpandedStacked,
    DataMatrix0,
    DataMatrix1,
    DataMatrix2,
    DataMatrix3,
    DataMatrix4,
    DataMatrix5,
    DataMatrix6,
};

constexpr unsigned kCodeTypeCount = 25;

// Which facade setting a strategy receives as the param argument of generate.
enum class StrategySetting { None, QRErrorCorrectionLevel, GS1DatabarRowCount };

// What sets a code type apart beyond its strategy; a row holds any of them joined with |.
enum CodeTypeTrait : unsigned {
    kPlainValue = 0,
    // A Base64 value that doesn't open with FNC1 is read as a bracketed element string.
    kGS1Value = 1u << 0,
    // A failed generation walks on to the next type of the cycle; the types behind the last one
    // that has this trait never come round again.
    kInCycle = 1u << 1,
    // A linear symbol that grows with its value, without a capacity that would refuse a long one.
    kGrowsWithValue = 1u << 2,
    // The logo step stamps LogoImage on its picture.
    kTakesLogo = 1u << 3,
};

constexpr CodeTypeTrait operator|(CodeTypeTrait a, CodeTypeTrait b) {
    return static_cast<CodeTypeTrait>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

// Everything the facade and the tools know about one code type.
struct CodeTypeRow {
    CodeType type;
    // Gallery file names, benchmark rows and the tool's -t.
    const char* name;
    // A new strategy, given the row's argument (the Data Matrix scheme; 0 for the others).
    AbstractBarcodeStrategy* (*make)(int argument);
    int argument;
    StrategySetting setting;
    CodeTypeTrait traits;
    // A picture that fits the demo value comfortably.
    unsigned demoWidth;
    unsigned demoHeight;
    // What the gallery draws in place of a demo value that the type can't encode (UTF-8).
    const char* galleryValue = nullptr;

    constexpr bool has(CodeTypeTrait trait) const { return (traits & trait) != 0; }
};

extern const CodeTypeRow g_codeTypes[kCodeTypeCount];

// The type that the automatic search names when no type takes the value.
constexpr CodeType kSearchFallback = CodeType::QR;

// The number of types, from 0 up, that a failed generation walks through.
unsigned codeTypeCycleLength();

template <class Strategy>
AbstractBarcodeStrategy* makeStrategy(int argument) {
    if constexpr (std::is_constructible_v<Strategy, int>) {
        return newOrThrow<Strategy>(argument);
    } else {
        static_cast<void>(argument);
        return newOrThrow<Strategy>();
    }
}

}  // namespace BarcodeVelko
