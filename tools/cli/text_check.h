#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace VelkoHost {
class ExtensionSession;
}

namespace VelkoCli {

// Whether every character of the human-readable line made it into the picture. A second object
// with the same settings and value draws the line in a colour of its own (the probe); the marks
// of that colour are counted against the marks the text makes. Only the built-in font is
// counted: its glyphs are one colour, with gaps between them.

// Gives the probe, set up as the object that draws the label, its text colour.
void setUpTextProbe(VelkoHost::ExtensionSession& probe, VelkoHost::ExtensionSession& session);

// Draws the probe, which holds the label's value, and says what the line lost.
std::vector<std::string> textLineWarnings(VelkoHost::ExtensionSession& session,
                                          VelkoHost::ExtensionSession& probe, unsigned type);

// The marks of a colour in a PNG: pieces joined at sides or corners.
size_t marksShown(const std::vector<unsigned char>& png, unsigned colour);

// The marks a text makes when every character is drawn; 0 when a character's count of marks is
// not known (outside printable ASCII).
size_t marksOf(const std::string& text);

}  // namespace VelkoCli
