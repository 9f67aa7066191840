#pragma once

#include <cstddef>
#include <string>
#include <variant>

namespace BarcodeVelko {
class BarcodeFacade2;
}

constexpr long kPropCount = 43;
constexpr long kMethodCount = 3;

// How the host writes and reads a property: Boolean as tag 11, Integer and Double as tag 3
// (a write also takes tag 5; Double reaches the facade as a double), String as tag 22 up to its
// terminator, Binary as tag 22 of exactly its length, holding Base64.
enum class PropertyKind { Boolean, Integer, Double, String, Binary };

// What a write does with a text longer than its property's bound (host/text_bounds.h).
enum class LongText {
    Refused,  // the write answers false, silently, as the setting has no message
    AsEmpty,  // the setter gets an empty text and answers as it does for that bad value
    Cut,      // the text is taken up to the bound
};

struct TextBound {
    std::size_t longest;
    LongText beyond;
};

// A property's value between the host's variant and the facade: bool for Boolean, int for
// Integer and Double, the wide string for String and Binary.
using PropertyValue = std::variant<bool, int, std::wstring>;

// What a property reads: the facade, and the Result of the last picture.
struct PropertySource {
    const BarcodeVelko::BarcodeFacade2& facade;
    int result;
};

struct PropertyDescriptor {
    long index;
    const wchar_t* names[2];  // English, Russian
    PropertyKind kind;
    bool readable;
    bool writable;
    // A negative integer is refused rather than taken as 0.
    bool refusesNegative;
    // Null where the host can't read or write the property at all. CodeText has a setter
    // although it reports itself read-only: a write still reaches the facade.
    PropertyValue (*get)(const PropertySource& source);
    void (*set)(BarcodeVelko::BarcodeFacade2& facade, const PropertyValue& value);
    // For String and Binary.
    TextBound bound{0, LongText::Refused};
};

extern const PropertyDescriptor g_properties[kPropCount];
extern const wchar_t* const g_aszMethodNames[kMethodCount][2];

// No property or method has a longer name in either language.
constexpr std::size_t kLongestName = 64;

// The index of name among the English names, else among the Russian ones, or -1. Case counts.
long findPropertyName(const std::wstring& name);
long findMethodName(const std::wstring& name);
