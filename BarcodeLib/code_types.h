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

// Everything the facade and the tools know about one code type.
struct CodeTypeRow {
    CodeType type;
    // Gallery file names, benchmark rows and the tool's -t.
    const char* name;
    // A new strategy, given the row's argument.
    AbstractBarcodeStrategy* (*make)(int argument);
    int argument;
    StrategySetting setting;
    // A Base64 value that doesn't open with FNC1 is read as a bracketed element string.
    bool gs1;
    // A failed generation walks on to the next type of the cycle; the types behind it never
    // come round again.
    bool inCycle;
    // A picture that fits the demo value comfortably.
    unsigned demoWidth;
    unsigned demoHeight;
    // A linear symbol that grows with its value, without a capacity that would refuse a long
    // one.
    bool growsWithValue = false;
    // What the gallery draws in place of a demo value that the type can't encode (UTF-8).
    const char* galleryValue = nullptr;
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
