#pragma once

#include <string>

namespace BarcodeVelko {

// A cursor on a wide string, for reading element strings piece by piece. Every misuse throws
// Unexpected.
class UCCTreeContext {
public:
    // A copy of text, at position 0; null or empty text throws.
    explicit UCCTreeContext(const wchar_t* text);

    // Characters from the position to the end.
    unsigned int charsLeft() const;
    unsigned int getPos() const { return pos; }
    // A position at or past the end throws.
    void setPos(unsigned int position);
    // The character at the position, moving on.
    wchar_t get();
    // The next n characters, moving on; n from 1 to charsLeft().
    std::wstring get(int n);
    // Moves back by n, from 1 to the position.
    void unget(int n);
    // Moves past sequence if it stands next; otherwise stays. An empty sequence throws
    // OutOfMemory.
    bool trySequence(const wchar_t* sequence);

private:
    std::wstring text;
    unsigned int pos = 0;
};

}  // namespace BarcodeVelko
