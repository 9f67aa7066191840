#pragma once

#include <string>

#include "layer/foundation/p_error.h"

// GS1 element strings. A user writes them bracketed, "(01)04600822901507(10)ABC"; a symbol
// needs the raw form, "{FMC1}0104600822901507" "10ABC": each identifier's digits followed by its
// data, the start marker first, and the separator marker behind every element whose table row
// asks for one when more follows. Each symbology replaces the two markers by its own characters.

// The start marker, always first in a raw form.
constexpr const char kGS1StartMarker[] = "{FMC1}";
// The separator marker between elements.
constexpr const char kGS1SeparatorMarker[] = "{GS1}";
// The same markers for code that works on wide strings.
constexpr const wchar_t kGS1StartMarkerW[] = L"{FMC1}";
constexpr const wchar_t kGS1SeparatorMarkerW[] = L"{GS1}";

// The raw form of a bracketed element string, checked against the table of application
// identifiers. Never throws. Text empty or of blanks gives "" and no error. A refused text comes
// back unchanged, not trimmed and without markers, and *error, if error isn't null, tells why:
//   code 0    "Not gs1 code"                  no identifier at the start, or one the table lacks
//   code 100  "No such gs1 code: <ai>"        a later identifier the table lacks
//   code 100  "Unsuffisient code size [n,m]"  the text (n characters) ends inside a fixed part
//   code 100  "Vary code part exeed standart" a variable part is too long
//   code 1    the exception's text            an exception on the way; the result is then ""
// On success *error is a PError without an error.
std::string text2gs1raw(const std::string& text, PError* error);

// There is no way back yet: gives "" and, if error isn't null, code 1 "not yet implemented".
std::string gs1raw2text(const std::string& raw, PError* error);
