#pragma once

#include <string>

namespace VelkoCli {

// The extension library the tool loads, and where it was found.
struct LibraryChoice {
    std::string path;
    const char* source;
};

// VELKO_EXTENSION where it is set; else the library installed beside the tool, found from the
// tool's own place; else the one the build made.
LibraryChoice chooseLibrary();

// The module that reads pictures back for --verify: installed beside the extension, found from
// the tool's own place as the extension is; else the one the build made.
std::string readerModulePath();

}  // namespace VelkoCli
