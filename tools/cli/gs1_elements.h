#pragma once

#include <string>
#include <vector>

namespace VelkoCli {

// One element of a GS1 element string: the identifier's digits and its data.
struct GS1Element {
    std::string ai;
    std::string data;
};

// The elements of a raw form, as the library writes it ("{FMC1}" first, "{GS1}" between
// elements) or as a scanner transmits it (the GS character between elements); empty when an
// identifier isn't in the library's table or a fixed part is cut short.
std::vector<GS1Element> gs1Elements(const std::string& raw);

// The bracketed form: "(01)04006381333931(10)ABC".
std::string bracketed(const std::vector<GS1Element>& elements);

// The elements of a bracketed text by the library's own parser; empty when it refuses the text,
// with its reason in *why.
std::vector<GS1Element> parseBracketed(const std::string& text, std::string* why = nullptr);

}  // namespace VelkoCli
