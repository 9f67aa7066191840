#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/scan_harness.h"

namespace {

std::string ean13(unsigned long long stem) {
    std::string digits = std::to_string(stem);
    digits.insert(0, 12 - digits.size(), '0');
    int sum = 0;
    for (size_t i = 0; i < 12; ++i) {
        sum += (digits[i] - '0') * (i % 2 ? 3 : 1);
    }
    return digits + static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::vector<unsigned char> bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Ten thousand values through one object: every PNG written, a sample of them scanned back.
TEST(CliBatch, TenThousandValuesScanBack) {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("velko_batch_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::vector<std::string> values;
    {
        std::ofstream list(folder / "values.txt");
        for (unsigned long long i = 0; i < 10000; ++i) {
            values.push_back(ean13(400638133000ULL + i * 7919));
            list << values.back() << "\n";
        }
    }
    const std::string command = std::string(VELKO_CLI) + " -q -t 1 -s Width=300 -s Height=150" +
                                " --batch " + (folder / "values.txt").string() + " -o " +
                                (folder / "out").string();
    EXPECT_EQ(std::system(command.c_str()), 0);
    for (size_t i = 0; i < values.size(); i += 997) {
        char name[32];
        std::snprintf(name, sizeof name, "%06zu.png", i + 1);
        const VelkoTest::Picture picture = VelkoTest::decodePng(bytesOf(folder / "out" / name));
        EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::EAN13), values[i]) << name;
    }
    EXPECT_TRUE(std::filesystem::exists(folder / "out" / "010000.png"));
    EXPECT_FALSE(std::filesystem::exists(folder / "out" / "010001.png"));
    std::filesystem::remove_all(folder);
}

}  // namespace
