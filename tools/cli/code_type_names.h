#pragma once

#include <ostream>
#include <string>

namespace VelkoCli {

// The code type that -t names: a number from 0 to 24 or a name of the code-type table, in any
// case; -1 for anything else.
int codeTypeNamed(const std::string& text);

// One row a code type: number, name, demo value and what the type accepts.
void printCodeTypes(std::ostream& out);

}  // namespace VelkoCli
