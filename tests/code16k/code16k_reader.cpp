#include "tests/code16k/code16k_reader.h"

#include <algorithm>

namespace Code16kTest {

namespace {

// Element widths of the symbol values 0 to 106 (EN 12323, as Code 128 but for 106), read
// from the space that opens each character in a Code 16K row.
const char* const kValueWidths[107] = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212",
    "221213", "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221",
    "223211", "221132", "221231", "213212", "223112", "312131", "311222", "321122", "321221",
    "312212", "322112", "322211", "212123", "212321", "232121", "111323", "131123", "131321",
    "112313", "132113", "132311", "211313", "231113", "231311", "112133", "112331", "132131",
    "113123", "113321", "133121", "313121", "211331", "231131", "213113", "213311", "213131",
    "311123", "311321", "331121", "312113", "312311", "332111", "314111", "221411", "431111",
    "111224", "111422", "121124", "121421", "141122", "141221", "112214", "112412", "122114",
    "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111", "111242",
    "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311",
    "113141", "114131", "311141", "411131", "211412", "211214", "211232", "211133",
};

// The start and stop characters (bar, space, bar, space for a start; the reverse for a stop),
// and which of them begins and ends each row.
const char* const kRowCharacters[8] = {"3211", "2221", "2122", "1411",
                                       "1132", "1231", "1114", "3112"};
const unsigned kStartOfRow[16] = {0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5, 6, 7};
const unsigned kStopOfRow[16] = {0, 1, 2, 3, 4, 5, 6, 7, 4, 5, 6, 7, 0, 1, 2, 3};

const unsigned kWidth = 80;  // modules, of the bars above and below the rows
const unsigned kRowHeight = 8;
const unsigned kQuiet = 5;  // light modules before a row's start and behind its stop

bool dark(unsigned pixel) {
    const unsigned luminance = (pixel & 0xff) + (pixel >> 8 & 0xff) + (pixel >> 16 & 0xff);
    return luminance < 3 * 128;
}

std::string widthsOf(const std::string& modules) {
    std::string widths;
    for (size_t i = 0; i < modules.size();) {
        size_t j = i;
        while (j < modules.size() && modules[j] == modules[i]) {
            ++j;
        }
        if (j - i > 9) {
            return "?";
        }
        widths += static_cast<char>('0' + (j - i));
        i = j;
    }
    return widths;
}

// What the values 96 to 106 do in sets A, B and C (in C from 100 on): L latches to the set
// named after it, S shifts the number of characters (pairs in C) given behind the set, P pads;
// an empty entry is an FNC character, which this encoder never writes.
const char* const kFunctions[11][3] = {
    {"", "", ""},          {"", "", ""},          {"SB1", "SA1", ""},    {"LC", "LC", ""},
    {"LB", "", "LB"},      {"", "LA", "LA"},      {"", "", ""},          {"P", "P", "P"},
    {"SB2", "SA2", "SB1"}, {"SC2", "SC2", "SB2"}, {"SC3", "SC3", "SB3"},
};

// The set of each start mode, with the characters shifted to B at the start; FNC1 modes 3 and
// 4 are left out.
const char* const kModes[7] = {"A", "B", "C", "", "", "CB1", "CB2"};

// Appends the character or pair of value in set ('A', 'B' or 'C'); false for a function.
bool characterOf(unsigned value, char set, std::string& text) {
    if (set == 'C') {
        if (value >= 100) {
            return false;
        }
        text += static_cast<char>('0' + value / 10);
        text += static_cast<char>('0' + value % 10);
    } else if (value >= 96) {
        return false;
    } else if (set == 'B' || value < 64) {
        text += static_cast<char>(value + 32);
    } else {
        text += static_cast<char>(value - 64);
    }
    return true;
}

}  // namespace

void checkCharacters(const std::vector<unsigned>& values, unsigned& first, unsigned& second) {
    unsigned long sum1 = 0;
    unsigned long sum2 = 0;
    for (size_t i = 0; i < values.size(); ++i) {
        sum1 += (i + 2) * values[i];
        sum2 += (i + 1) * values[i];
    }
    first = static_cast<unsigned>(sum1 % 107);
    second = static_cast<unsigned>((sum2 + (values.size() + 1) * first) % 107);
}

std::string decodeValues(const std::vector<unsigned>& values, std::string& error) {
    std::string text;
    const char* mode = values.empty() ? "" : kModes[values[0] % 7];
    if (*mode == '\0') {
        error = "no values or an FNC1 mode";
        return text;
    }
    char set = mode[0];
    char shiftSet = mode[1];
    unsigned shifted = mode[1] ? static_cast<unsigned>(mode[2] - '0') : 0;
    bool padding = false;
    for (size_t i = 1; i < values.size() && error.empty(); ++i) {
        const unsigned v = values[i];
        if (padding || v == 103) {
            padding = true;
            error = v == 103 ? "" : "value after a pad";
        } else if (shifted > 0) {
            --shifted;
            error = characterOf(v, shiftSet, text) ? "" : "function value in a shift";
        } else if (!characterOf(v, set, text)) {
            const std::string function = v <= 106 ? kFunctions[v - 96][set - 'A'] : "";
            if (function.empty()) {
                error = "value " + std::to_string(v) + " in set " + set;
            } else if (function[0] == 'L') {
                set = function[1];
            } else {
                shiftSet = function[1];
                shifted = static_cast<unsigned>(function[2] - '0');
            }
        }
    }
    if (shifted > 0 && error.empty()) {
        error = "shift at the end";
    }
    return text;
}

Reading read(const VelkoTest::Picture& picture) {
    Reading reading;
    const auto fail = [&reading](const std::string& why) {
        reading.error = why;
        return reading;
    };
    const VelkoTest::Box box = VelkoTest::boxOf(picture, dark);
    if (box.right == 0) {
        return fail("nothing dark");
    }
    const unsigned left = box.left, top = box.top;
    const unsigned width = box.right - left;
    const unsigned height = box.bottom - top;
    const unsigned x = width / kWidth;
    if (x == 0 || width % kWidth != 0 || height % x != 0 || (height / x - 1) % (kRowHeight + 1)) {
        return fail("not a grid of 80 modules and 9-module rows: " + std::to_string(width) + " x " +
                    std::to_string(height));
    }
    const unsigned rows = (height / x - 1) / (kRowHeight + 1);
    if (rows < 2 || rows > 16) {
        return fail(std::to_string(rows) + " rows");
    }
    reading.rows = rows;

    // Every pixel line of a module row must read the same.
    const auto line = [&](unsigned moduleRow, unsigned modules) {
        std::string first;
        for (unsigned dy = 0; dy < modules * x; ++dy) {
            std::string bits;
            for (unsigned m = 0; m < kWidth; ++m) {
                bits +=
                    dark(picture.pixel(left + m * x + x / 2, top + moduleRow * x + dy)) ? '1' : '0';
            }
            if (dy > 0 && bits != first) {
                return std::string("uneven");
            }
            first = bits;
        }
        return first;
    };
    const std::string quiet(kQuiet, '0');
    if (line(0, 1) != std::string(kWidth, '1') || line(height / x - 1, 1) != line(0, 1)) {
        return fail("top or bottom bar");
    }
    for (unsigned r = 0; r < rows; ++r) {
        const unsigned rowTop = 1 + r * (kRowHeight + 1);
        if (r + 1 < rows && line(rowTop + kRowHeight, 1) != quiet + std::string(70, '1') + quiet) {
            return fail("separator under row " + std::to_string(r));
        }
        const std::string bits = line(rowTop, kRowHeight);
        if (bits.compare(0, kQuiet, quiet) != 0 ||
            bits.compare(kWidth - kQuiet, kQuiet, quiet) != 0) {
            return fail("quiet zone of row " + std::to_string(r));
        }
        const std::string widths = widthsOf(bits.substr(kQuiet, kWidth - 2 * kQuiet));
        // start (4) and guard bar, five characters of six elements, stop (4)
        if (widths.size() != 39 || widths.compare(0, 4, kRowCharacters[kStartOfRow[r]]) != 0 ||
            widths[4] != '1' || widths.compare(35, 4, kRowCharacters[kStopOfRow[r]]) != 0) {
            return fail("start or stop of row " + std::to_string(r) + ": " + widths);
        }
        for (unsigned c = 0; c < 5; ++c) {
            const std::string character = widths.substr(5 + 6 * c, 6);
            const auto found =
                std::find(std::begin(kValueWidths), std::end(kValueWidths), character);
            if (found == std::end(kValueWidths)) {
                return fail("no symbol character " + character);
            }
            reading.values.push_back(static_cast<unsigned>(found - std::begin(kValueWidths)));
        }
    }

    const std::vector<unsigned> data(reading.values.begin(), reading.values.end() - 2);
    unsigned first = 0, second = 0;
    checkCharacters(data, first, second);
    if (first != reading.values[reading.values.size() - 2] || second != reading.values.back()) {
        return fail("check characters");
    }
    if (reading.values[0] / 7 + 2 != rows) {
        return fail("mode character names " + std::to_string(reading.values[0] / 7 + 2) + " rows");
    }
    reading.mode = reading.values[0] % 7;
    reading.text = decodeValues(data, reading.error);
    return reading;
}

}  // namespace Code16kTest
