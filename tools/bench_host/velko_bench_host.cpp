// GetBarcode through our own host for the demo value of every code type, at its demo size and
// at 600 x 300.
// Prints microseconds per call; types that give no clean picture at either size are left out.

#include <chrono>
#include <cstdio>
#include <string>
#include <variant>

#include "BarcodeLib/facade/code_types.h"
#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;

namespace {

constexpr auto kMinimumTime = std::chrono::milliseconds(200);

struct Size {
    int width;
    int height;
};

// Microseconds per GetBarcode, or a negative number when the type gives no clean picture.
double measure(const ExtensionLibrary& library, int type, Size size) {
    ExtensionSession session(library);
    session.set("CodeAuto", false);
    session.set("CodeType", type);
    session.set("Width", size.width);
    session.set("Height", size.height);
    session.getBarcode();
    const VelkoHost::Value result = session.get("Result");
    if (!std::holds_alternative<int>(result) || std::get<int>(result) != 0) {
        return -1;
    }
    using Clock = std::chrono::steady_clock;
    int calls = 0;
    const Clock::time_point start = Clock::now();
    Clock::duration elapsed{};
    do {
        session.getBarcode();
        ++calls;
        elapsed = Clock::now() - start;
    } while (elapsed < kMinimumTime);
    return std::chrono::duration<double, std::micro>(elapsed).count() / calls;
}

// A time, or a dash where the demo value doesn't fit the picture.
std::string shown(double microseconds) {
    char text[32] = "-";
    if (microseconds >= 0) {
        std::snprintf(text, sizeof text, "%.1f", microseconds);
    }
    return text;
}

}  // namespace

int main() {
    const ExtensionLibrary library(ExtensionLibrary::defaultPath());
    if (!library.loaded()) {
        std::fprintf(stderr, "velko-bench-host: %s\n", library.error().c_str());
        return 2;
    }
    std::printf("%-4s %-16s %14s %14s\n", "type", "name", "demo size us", "600x300 us");
    for (const BarcodeVelko::CodeTypeRow& row : BarcodeVelko::g_codeTypes) {
        const int type = static_cast<int>(row.type);
        const Size demo{static_cast<int>(row.demoWidth), static_cast<int>(row.demoHeight)};
        const double small = measure(library, type, demo);
        const double large = measure(library, type, {600, 300});
        if (small < 0 && large < 0) {
            continue;
        }
        std::printf("%-4d %-16s %14s %14s\n", type, row.name, shown(small).c_str(),
                    shown(large).c_str());
    }
    return 0;
}
