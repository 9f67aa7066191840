#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
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

std::string textOf(const std::filesystem::path& path) {
    const std::vector<unsigned char> bytes = bytesOf(path);
    return std::string(bytes.begin(), bytes.end());
}

// Ten thousand lines, 5 of them blank and 3 that EAN-13 can't encode, on one thread and on two
// (one object a thread): 9992 labels, a sample of them scanned back, the same bytes from both,
// the 3 error pictures beside them under names of their own, and a report that names the 8
// lines.
TEST(CliBatch, TenThousandLinesWithBlankAndBadOnesScanBackAndAgree) {
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("velko_batch_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    const std::set<size_t> blank = {2, 100, 5001, 5002, 10000};
    const std::set<size_t> bad = {7, 640, 9999};
    std::vector<std::string> values;
    {
        std::ofstream list(folder / "values.txt");
        for (size_t line = 1; line <= 10000; ++line) {
            values.push_back(blank.count(line) ? line == 100 ? "  " : ""
                             : bad.count(line) ? "40063813339X"
                                               : ean13(400638133000ULL + line * 7919));
            list << values.back() << "\n";
        }
    }
    for (const char* jobs : {"1", "2"}) {
        const std::string out = (folder / ("out" + std::string(jobs))).string();
        const std::string command = std::string(VELKO_CLI) + " -q -j " + jobs + " -t 1 " +
                                    "-s Width=300 -s Height=150 --batch " +
                                    (folder / "values.txt").string() + " -o " + out + " 2>" + out +
                                    ".txt";
        EXPECT_NE(std::system(command.c_str()), 0);
        size_t labels = 0;
        std::set<std::string> errors;
        for (const auto& entry : std::filesystem::directory_iterator(out)) {
            const std::string name = entry.path().filename().string();
            if (name.find(".error.png") != std::string::npos) {
                errors.insert(name);
            } else {
                ++labels;
            }
        }
        EXPECT_EQ(labels, 9992u);
        EXPECT_EQ(errors, (std::set<std::string>{"000007.error.png", "000640.error.png",
                                                 "009999.error.png"}));
        const std::string report = textOf(out + ".txt");
        for (const size_t line : blank) {
            EXPECT_NE(report.find("line " + std::to_string(line) + ": blank"), std::string::npos)
                << report;
        }
        for (const size_t line : bad) {
            EXPECT_NE(report.find("line " + std::to_string(line) + ": not clean"),
                      std::string::npos)
                << report;
        }
    }
    for (size_t i = 0; i < values.size(); i += 997) {
        char name[32];
        std::snprintf(name, sizeof name, "%06zu.png", i + 1);
        const VelkoTest::Picture picture = VelkoTest::decodePng(bytesOf(folder / "out1" / name));
        EXPECT_EQ(VelkoTest::scan(picture, ZXing::BarcodeFormat::EAN13), values[i]) << name;
    }
    EXPECT_TRUE(std::filesystem::exists(folder / "out1" / "009998.png"));
    EXPECT_FALSE(std::filesystem::exists(folder / "out1" / "010000.png"));
    for (const auto& entry : std::filesystem::directory_iterator(folder / "out1")) {
        EXPECT_EQ(bytesOf(entry.path()), bytesOf(folder / "out2" / entry.path().filename()))
            << entry.path();
    }
    std::filesystem::remove_all(folder);
}

}  // namespace
