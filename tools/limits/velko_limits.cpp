// Checks one bound of docs/limits.md and prints the process's peak memory and time:
//   velko-limits font SIZE WIDTH      one picture, TrueType text of SIZE pixels, Height 2*SIZE
//   velko-limits value MB [TYPE]      a value of MB megabytes of host text, and a picture
//   velko-limits glyphs FROM TO       TrueType text at every size from FROM to TO; the glyph
//                                     store must stay within its budget all along
//   velko-limits text NAME MI         MI Mi characters of host text handed to a string property,
//                                     or to SetLocale, FindFont, FindProp or GetClassObject:
//                                     memory added at the peak and kept, beside the host's own
//                                     text, and the CPU time of later pictures
// Exits with 1 when the peak passes the megabytes given by --peak MB, or the store its budget.

#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <variant>
#include <vector>

#include "BarcodeLib/facade/barcode_facade2.h"
#include "layer/fonts/p_font_glyphs_cache.h"
#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;

namespace {

const char kFont[] = "DejaVuSans";
const char kText[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}

int result(ExtensionSession& session) {
    const VelkoHost::Value value = session.get("Result");
    return std::holds_alternative<int>(value) ? std::get<int>(value) : -1;
}

bool font(const ExtensionLibrary& library, int size, int width) {
    ExtensionSession session(library);
    session.set("CodeAuto", false);
    session.set("CodeType", 4);
    session.set("Width", width);
    session.set("Height", 2 * size);
    session.set("Font", std::string(kFont));
    session.set("FontSize", size);
    session.set("CodeValue", std::string(kText));
    const std::vector<unsigned char> png = session.getBarcode();
    std::printf("font %d in %d x %d: Result %d, %zu PNG bytes\n", size, width, 2 * size,
                result(session), png.size());
    return !png.empty();
}

bool value(const ExtensionLibrary& library, double megabytes, int type) {
    ExtensionSession session(library);
    if (type >= 0) {
        session.set("CodeAuto", false);
        session.set("CodeType", type);
    }
    // The host's own 16-bit text, made in place: no copies on this side.
    const std::size_t units = static_cast<std::size_t>(megabytes * (1 << 20) / 2);
    std::vector<unsigned short> text(units + 1);
    for (std::size_t i = 0; i < units; ++i) {
        text[i] = static_cast<unsigned short>('0' + i % 10);
    }
    text[units] = 0;
    VelkoVariant variant;
    std::memset(static_cast<void*>(&variant), 0, sizeof variant);
    variant.type = VariantWStr;
    variant.str.chars = text.data();
    variant.str.length = static_cast<uint32_t>(units);
    const bool written = session.object()->SetPropVal(session.propIndex("CodeValue"), &variant);
    text = std::vector<unsigned short>();
    const std::vector<unsigned char> png = session.getBarcode();
    std::printf("value of %zu characters: write %s, Result %d, %zu PNG bytes\n", units,
                written ? "true" : "false", result(session), png.size());
    return true;
}

// Resident and peak resident memory of the process, from /proc; the peak is reset by
// resetPeak.
double procMegabytes(const std::string& field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, field.size(), field) == 0) {
            return std::atof(line.c_str() + field.size()) / 1024.0;
        }
    }
    return 0;
}

void resetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

double cpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// The least CPU time of a few pictures.
double pictureSeconds(ExtensionSession& session) {
    double least = 1e9;
    for (int i = 0; i < 7; ++i) {
        const double start = cpuSeconds();
        session.getBarcode();
        least = std::min(least, cpuSeconds() - start);
    }
    return least;
}

// The host's text of name, handed over as the platform does; what the call answered.
bool handOver(const ExtensionLibrary& library, ExtensionSession& session, const std::string& name,
              std::vector<unsigned short>& text) {
    IVelkoExtension& object = *session.object();
    VelkoVariant variant;
    std::memset(static_cast<void*>(&variant), 0, sizeof variant);
    variant.type = VariantWStr;
    variant.str.chars = text.data();
    variant.str.length = static_cast<uint32_t>(text.size() - 1);
    if (name == "SetLocale") {
        object.SetLocale(text.data());
        return true;
    }
    if (name == "FindFont") {
        VelkoVariant answer;
        std::memset(static_cast<void*>(&answer), 0, sizeof answer);
        return object.CallAsFunc(2, &answer, &variant, 1);
    }
    if (name == "FindProp") {
        return object.FindProp(text.data()) >= 0;
    }
    if (name == "GetClassObject") {
        IVelkoExtension* made = nullptr;
        return library.getClassObject(text.data(), &made) != 0;
    }
    return object.SetPropVal(session.propIndex(name), &variant);
}

bool hostText(const ExtensionLibrary& library, const std::string& name, double mebi) {
    ExtensionSession session(library);
    const double before = pictureSeconds(session);
    std::vector<unsigned short> text(static_cast<std::size_t>(mebi * (1 << 20)) + 1, 'A');
    text.back() = 0;
    malloc_trim(0);
    const double resident = procMegabytes("VmRSS:");
    resetPeak();
    const bool answered = handOver(library, session, name, text);
    const double added = procMegabytes("VmHWM:") - resident;
    // The host lets its own text go, 2 bytes a character, before what stays is counted.
    text = std::vector<unsigned short>();
    malloc_trim(0);
    const double kept = procMegabytes("VmRSS:") - resident + mebi * 2;
    const double after = pictureSeconds(session);
    std::printf(
        "%s of %.0f Mi characters: answered %s, %.1f MB added at the peak, %.1f MB "
        "kept; a picture %.2f ms before, %.2f ms after\n",
        name.c_str(), mebi, answered ? "true" : "false", added, kept, before * 1e3, after * 1e3);
    return true;
}

bool glyphs(unsigned from, unsigned to) {
    BarcodeVelko::BarcodeFacade2 facade;
    facade.setCodeType(4);
    facade.setFont(L"DejaVuSans");
    facade.setCodeValue(L"ABCDEFGHIJKLM0123456789");
    std::size_t most = 0;
    for (unsigned size = from; size <= to; ++size) {
        facade.setColumnCount(std::max(400u, 14 * size));
        facade.setRowCount(2 * size + 20);
        facade.setFontSize(size);
        facade.draw();
        most = std::max(most, PFontGlyphsCache::bytes());
    }
    std::printf("glyph store after sizes %u to %u: %zu bytes, at most %zu, budget %zu\n", from, to,
                PFontGlyphsCache::bytes(), most, PFontGlyphsCache::kByteBudget);
    return most <= PFontGlyphsCache::kByteBudget;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    double peakLimit = 0;
    for (std::size_t i = 0; i + 1 < args.size(); ++i) {
        if (args[i] == "--peak") {
            peakLimit = std::atof(args[i + 1].c_str());
            args.erase(args.begin() + static_cast<long>(i),
                       args.begin() + static_cast<long>(i) + 2);
            break;
        }
    }
    const auto arg = [&](std::size_t i, double fallback) {
        return i < args.size() ? std::atof(args[i].c_str()) : fallback;
    };
    if (args.empty()) {
        std::fprintf(stderr,
                     "usage: velko-limits [--peak MB] font SIZE WIDTH | value MB [TYPE] | "
                     "glyphs FROM TO | text NAME MI\n");
        return 2;
    }
    const ExtensionLibrary library(ExtensionLibrary::defaultPath());
    if (args[0] != "glyphs" && !library.loaded()) {
        std::fprintf(stderr, "velko-limits: %s\n", library.error().c_str());
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    bool ok = false;
    if (args[0] == "font") {
        ok = font(library, int(arg(1, 4000)), int(arg(2, 1000)));
    } else if (args[0] == "value") {
        ok = value(library, arg(1, 64), int(arg(2, -1)));
    } else if (args[0] == "text" && args.size() > 1) {
        ok = hostText(library, args[1], arg(2, 64));
    } else if (args[0] == "glyphs") {
        ok = glyphs(unsigned(arg(1, 2)), unsigned(arg(2, 400)));
    } else {
        std::fprintf(stderr, "velko-limits: no check named %s\n", args[0].c_str());
        return 2;
    }
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const double peak = peakMegabytes();
    std::printf("peak %.1f MB, %.2f s%s\n", peak, seconds,
                peakLimit > 0 ? (peak <= peakLimit ? " (within bound)" : " (PAST THE BOUND)") : "");
    return ok && (peakLimit <= 0 || peak <= peakLimit) ? 0 : 1;
}
