#include "tools/cli/text_check.h"

#include <lodepng.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>

#include "BarcodeLib/facade/code_types.h"
#include "tools/cli/host_values.h"
#include "tools/host/extension_session.h"

namespace VelkoCli {

namespace {

using BarcodeVelko::CodeType;
using VelkoHost::Value;

constexpr char kBuiltInFont[] = "default";
// The types that draw no human-readable line.
const CodeType kWithoutTextLine[] = {
    CodeType::Code16K,     CodeType::PDF417,      CodeType::QR,          CodeType::DataMatrix0,
    CodeType::DataMatrix1, CodeType::DataMatrix2, CodeType::DataMatrix3, CodeType::DataMatrix4,
    CodeType::DataMatrix5, CodeType::DataMatrix6};

// Alpha 0x7F, the most a written colour keeps; red, green or blue at full strength: the first
// that is neither the bars' colour nor the background's.
const unsigned kProbeColours[] = {0x7F0000FF, 0x7F00FF00, 0x7FFF0000};
constexpr unsigned kRgb = 0x00FFFFFF;
constexpr unsigned char kStrong = 128;
constexpr char kFirstPrintable = '!';
constexpr char kLastPrintable = '~';
// Printable ASCII that is drawn in two pieces or more; every other one is one piece.
const char kTwoMarks[] = "!\":;=?ij";
const char kThreeMarks[] = "%";

// Clears the marked pixels joined to start at sides or corners; stack is room to work in.
void clearPiece(std::vector<unsigned char>& mark, unsigned width, unsigned height, size_t start,
                std::vector<size_t>& stack) {
    mark[start] = 0;
    stack.push_back(start);
    while (!stack.empty()) {
        const size_t at = stack.back();
        stack.pop_back();
        const long x = static_cast<long>(at % width);
        const long y = static_cast<long>(at / width);
        for (long ny = std::max(y - 1, 0L); ny <= std::min(y + 1, long(height) - 1); ++ny) {
            for (long nx = std::max(x - 1, 0L); nx <= std::min(x + 1, long(width) - 1); ++nx) {
                const size_t next = size_t(ny) * width + size_t(nx);
                if (mark[next]) {
                    mark[next] = 0;
                    stack.push_back(next);
                }
            }
        }
    }
}

}  // namespace

void setUpTextProbe(VelkoHost::ExtensionSession& probe, VelkoHost::ExtensionSession& session) {
    const unsigned bar = static_cast<unsigned>(numberOf(session.get("BarColor"))) & kRgb;
    const unsigned background = static_cast<unsigned>(numberOf(session.get("BgColor"))) & kRgb;
    for (const unsigned colour : kProbeColours) {
        if ((colour & kRgb) != bar && (colour & kRgb) != background) {
            probe.set("TextColor", static_cast<int>(colour));
            return;
        }
    }
}

std::vector<std::string> textLineWarnings(VelkoHost::ExtensionSession& session,
                                          VelkoHost::ExtensionSession& probe, unsigned type) {
    const bool drawsLine =
        std::none_of(std::begin(kWithoutTextLine), std::end(kWithoutTextLine),
                     [&](CodeType without) { return static_cast<unsigned>(without) == type; });
    if (!drawsLine || session.get("TextVisible") != Value(true) ||
        session.get("Font") != Value(std::string(kBuiltInFont))) {
        return {};
    }
    const std::string text = textOf(session.get("CodeText"));
    const size_t marks = marksOf(text);
    if (marks == 0 ||
        marksShown(probe.getBarcode(), static_cast<unsigned>(numberOf(probe.get("TextColor")))) >=
            marks) {
        return {};
    }
    return {"characters of the human-readable line \"" + text +
            "\" did not fit and are missing from it (FontSize " +
            std::to_string(numberOf(session.get("FontSize"))) + ")"};
}

size_t marksShown(const std::vector<unsigned char>& png, unsigned colour) {
    unsigned char* pixels = nullptr;
    unsigned width = 0;
    unsigned height = 0;
    const unsigned error = lodepng_decode32(&pixels, &width, &height, png.data(), png.size());
    // LodePNG's C functions allocate with malloc.
    const std::unique_ptr<unsigned char, decltype(&std::free)> rgba(pixels, &std::free);
    if (error != 0 || !pixels) {
        return 0;
    }
    // The channel the colour has at full strength, the other two weak.
    const int strong = (colour & 0xFF) ? 0 : (colour & 0xFF00) ? 1 : 2;
    std::vector<unsigned char> mark(size_t(width) * height);
    for (size_t i = 0; i < mark.size(); ++i) {
        const unsigned char* p = rgba.get() + i * 4;
        mark[i] =
            p[strong] >= kStrong && p[(strong + 1) % 3] < kStrong && p[(strong + 2) % 3] < kStrong;
    }
    // Pieces joined at sides or corners, each cleared as it is counted.
    size_t marks = 0;
    std::vector<size_t> stack;
    for (size_t start = 0; start < mark.size(); ++start) {
        if (mark[start]) {
            ++marks;
            clearPiece(mark, width, height, start, stack);
        }
    }
    return marks;
}

size_t marksOf(const std::string& text) {
    size_t marks = 0;
    for (const char c : text) {
        if (c == ' ') {
            continue;
        }
        if (c < kFirstPrintable || c > kLastPrintable) {
            return 0;
        }
        marks += std::strchr(kThreeMarks, c) ? 3 : std::strchr(kTwoMarks, c) ? 2 : 1;
    }
    return marks;
}

}  // namespace VelkoCli
