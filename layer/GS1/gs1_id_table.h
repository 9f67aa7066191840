#pragma once

#include <map>
#include <string>

// One application identifier as the parser knows it. Only the three numbers are read; the
// strings are there for a reader of the table.
class GS1IdSection {
public:
    // Each string is copied and cut to fit its field, which stays NUL-ended.
    GS1IdSection(unsigned char fixedLength, unsigned char variableLength, unsigned char separator,
                 const char* code, const char* title, const char* description, const char* format);

    // Characters of the fixed part, 0 if there is none.
    unsigned char fixedLength;
    // Most characters of the variable part behind the fixed part, 0 if there is none.
    unsigned char variableLength;
    // Non-zero: the element ends with a separator when anything follows it.
    unsigned char separator;
    // The identifier as the standard writes it, "310n" for a run; may differ from the key.
    char code[16];
    char title[32];
    char description[128];
    char format[32];
};

// Every identifier the system knows, by its digits; built on first use, never changed.
const std::map<std::string, GS1IdSection>& gs1IdTable();
