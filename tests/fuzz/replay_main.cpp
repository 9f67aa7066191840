// Without libFuzzer: runs a fuzz target over the files of its seed folders, so that the plain
// build keeps the targets compiling and their seeds passing. With --every-code-type it also
// requires the seeds to drive every code type from 0 to 24.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "tests/fuzz/fuzz_host.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
    bool everyType = false;
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--every-code-type") == 0) {
            everyType = true;
        } else if (std::filesystem::is_directory(argv[i])) {
            for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
                files.push_back(entry.path());
            }
        } else {
            files.emplace_back(argv[i]);
        }
    }
    std::sort(files.begin(), files.end());
    std::set<int> types;
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        const std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                         std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        types.insert(VelkoFuzzCodeType(bytes.data(), bytes.size()));
    }
    std::printf("%zu inputs\n", files.size());
    int missing = 0;
    for (int type = 0; everyType && type < 25; ++type) {
        if (!types.count(type)) {
            std::printf("no seed for code type %d\n", type);
            ++missing;
        }
    }
    return files.empty() || missing ? 1 : 0;
}
