// GetBarcode through our own host for the demo value of every code type, at two picture sizes.
// Prints microseconds per call; types that give no clean picture at either size are left out.

#include <chrono>
#include <cstdio>
#include <string>
#include <variant>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;

namespace {

constexpr int kCodeTypes = 25;
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
    const Size sizes[] = {{150, 100}, {600, 300}};
    std::printf("%-6s %14s %14s\n", "type", "150x100 us", "600x300 us");
    for (int type = 0; type < kCodeTypes; ++type) {
        const double small = measure(library, type, sizes[0]);
        const double large = measure(library, type, sizes[1]);
        if (small < 0 && large < 0) {
            continue;
        }
        std::printf("%-6d %14s %14s\n", type, shown(small).c_str(), shown(large).c_str());
    }
    return 0;
}
