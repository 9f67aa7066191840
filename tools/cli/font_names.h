#pragma once

#include <map>
#include <string>

namespace VelkoCli {

// The library names a font by its file's name without ".ttf" ("DejaVuSans-Bold"); fc-list by
// family and style ("DejaVu Sans:style=Bold"). These translate between the two through
// fontconfig.

// The library's name of the font that fontconfig picks for a name as fc-list prints it, or for
// a family alone; empty when fontconfig would answer with a font of another family or style.
std::string libraryFontName(const std::string& fcName);

// fc-list's "Family:style=Style" of each TrueType font, by the library's name.
std::map<std::string, std::string> fcFontNames();

}  // namespace VelkoCli
