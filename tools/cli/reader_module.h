#pragma once

#include <string>
#include <vector>

#include "tools/cli/picture_reader.h"

namespace VelkoCli {

// The module that reads pictures back (picture_reader.h), opened once for the whole process.
class ReaderModule {
public:
    // The module of the first call, from the path that readerModulePath() chooses.
    static const ReaderModule& instance();

    explicit ReaderModule(const std::string& path);
    ReaderModule(const ReaderModule&) = delete;
    ReaderModule& operator=(const ReaderModule&) = delete;

    // False, with error() saying why, when the module or its entry point is missing.
    bool loaded() const { return readPicture != nullptr; }
    const std::string& error() const { return loadError; }

    // What a scanner reads in the picture (see velko_read_picture); false when nothing reads.
    bool read(const std::vector<unsigned char>& png, const char* format, unsigned quietModules,
              bool addOn, std::string& symbology, std::string& text) const;

private:
    // Never closed: threads may read until the process ends.
    decltype(&velko_read_picture) readPicture = nullptr;
    std::string loadError;
};

}  // namespace VelkoCli
