// Peak resident memory of a 4000 x 4000 QR Code picture through GetBarcode, against the RGBA
// picture itself (64 MB). The baseline is taken after the library is loaded and one small
// picture is drawn, so that fonts and code pages don't count; run in a fresh process, since
// the peak never goes down.

#include <sys/resource.h>

#include <cstdio>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

namespace {

constexpr int kSide = 4000;

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace

int main() {
    const VelkoHost::ExtensionLibrary library(VelkoHost::ExtensionLibrary::defaultPath());
    if (!library.loaded()) {
        std::fprintf(stderr, "velko-bench-peak: %s\n", library.error().c_str());
        return 2;
    }
    VelkoHost::ExtensionSession session(library);
    session.set("CodeAuto", false);
    session.set("CodeType", 16);
    session.set("Width", 200);
    session.set("Height", 200);
    session.getBarcode();
    const long before = peakKilobytes();

    session.set("Width", kSide);
    session.set("Height", kSide);
    const size_t bytes = session.getBarcode().size();
    const long after = peakKilobytes();

    const double picture = 4.0 * kSide * kSide / 1024.0;
    const double growth = static_cast<double>(after - before);
    std::printf(
        "QR %dx%d: PNG %zu bytes; peak %ld KB before, %ld KB after: +%.0f KB, %.2f x the "
        "RGBA picture\n",
        kSide, kSide, bytes, before, after, growth, growth / picture);
    return bytes > 0 ? 0 : 1;
}
