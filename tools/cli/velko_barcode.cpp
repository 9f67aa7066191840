// velko-barcode: renders barcodes through the extension library, driven by our own host.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "BarcodeLib/code_types.h"
#include "layer/foundation/base64.h"
#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"
#include "tools/host/host_strings.h"

using VelkoHost::ExtensionLibrary;
using VelkoHost::ExtensionSession;
using VelkoHost::Value;

namespace {

const char kUsage[] =
    "velko-barcode [options] [--] [VALUE]\n"
    "velko-barcode [options] --batch FILE\n"
    "  -t, --type N          write CodeAuto=false, then CodeType=N\n"
    "  -s, --set NAME=VALUE  write any property by its English or Russian name; the value is\n"
    "                        read by the property's type: an integer (decimal or 0x hex),\n"
    "                        true/false, or text\n"
    "  -b, --base64          the value is Base64 (InputDataType=1)\n"
    "      --logo FILE       a PNG file for LogoImage (sent as Base64)\n"
    "                        -t, -s, -b and --logo are written in the order given, the value last\n"
    "  -o, --out PATH        the PNG to write (default barcode.png); with --batch, the folder\n"
    "                        (default .)\n"
    "      --batch FILE      one value a line (FILE - is standard input), each drawn with the\n"
    "                        same settings into OUT/NNNNNN.png, NNNNNN the line number\n"
    "      --gallery DIR     the demo value of every code type into DIR, one PNG each, named by\n"
    "                        type number and symbology, at a size that fits it, with index.html\n"
    "      --fonts           list the fonts (FontCount, FontAt), one a line\n"
    "  -q, --quiet           print nothing\n"
    "  -h, --help\n"
    "Exit: 0 every picture is a clean barcode, 1 some picture shows an error, 2 a usage error,\n"
    "a write the object refused, or a folder or file that can't be made or read.\n";

enum Exit { kClean = 0, kErrorPicture = 1, kUsageError = 2 };

// One property write: the name and the text of its value.
using Write = std::pair<std::string, std::string>;

struct Options {
    std::vector<Write> writes;
    bool typeGiven = false;
    std::string out;
    std::string batch;
    std::string gallery;
    bool fonts = false;
    bool quiet = false;
    bool haveValue = false;
    std::string value;
};

// A bad command line, or a write the object refused; both exit with 2.
struct UsageError {
    std::string message;
    bool showUsage = true;
};

bool parseInteger(const std::string& text, int& number) {
    if (text.empty()) {
        return false;
    }
    char* end = nullptr;
    const long long parsed = std::strtoll(text.c_str(), &end, 0);
    if (*end != '\0' || parsed < -2147483648LL || parsed > 4294967295LL) {
        return false;
    }
    // A 32-bit pattern such as 0xFF000000 goes over the wire as the host's signed integer.
    number = static_cast<int>(static_cast<unsigned int>(parsed));
    return true;
}

std::string readBase64(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw UsageError{"can't read " + path};
    }
    return raw2Base64(
        std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>()));
}

Options parse(int argc, char** argv) {
    Options options;
    auto argument = [&](int& i) -> std::string {
        if (i + 1 >= argc) {
            throw UsageError{std::string(argv[i]) + " needs an argument"};
        }
        return argv[++i];
    };
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--") {
            if (i + 1 < argc) {
                options.value = argv[++i];
                options.haveValue = true;
            }
            if (i + 1 < argc) {
                throw UsageError{"more than one value"};
            }
            break;
        }
        if (arg == "-h" || arg == "--help") {
            std::cout << kUsage;
            std::exit(kClean);
        } else if (arg == "-t" || arg == "--type") {
            options.writes.emplace_back("CodeAuto", "false");
            options.writes.emplace_back("CodeType", argument(i));
            options.typeGiven = true;
        } else if (arg == "-s" || arg == "--set") {
            const std::string assignment = argument(i);
            const auto equals = assignment.find('=');
            if (equals == std::string::npos || equals == 0) {
                throw UsageError{"--set takes NAME=VALUE, not " + assignment};
            }
            options.writes.emplace_back(assignment.substr(0, equals),
                                        assignment.substr(equals + 1));
        } else if (arg == "-b" || arg == "--base64") {
            options.writes.emplace_back("InputDataType", "1");
        } else if (arg == "--logo") {
            options.writes.emplace_back("LogoImage", readBase64(argument(i)));
        } else if (arg == "-o" || arg == "--out") {
            options.out = argument(i);
        } else if (arg == "--batch") {
            options.batch = argument(i);
        } else if (arg == "--gallery") {
            options.gallery = argument(i);
        } else if (arg == "--fonts") {
            options.fonts = true;
        } else if (arg == "-q" || arg == "--quiet") {
            options.quiet = true;
        } else if (arg.size() > 1 && arg[0] == '-') {
            throw UsageError{"unknown option " + arg};
        } else if (options.haveValue) {
            throw UsageError{"more than one value"};
        } else {
            options.value = arg;
            options.haveValue = true;
        }
    }
    if (!options.batch.empty() && options.haveValue) {
        throw UsageError{"--batch takes its values from the file, not the command line"};
    }
    if (options.out.empty()) {
        options.out = options.batch.empty() ? "barcode.png" : ".";
    }
    return options;
}

std::string lastHostError(ExtensionSession& session) {
    const auto& errors = session.host().errors;
    return errors.empty() ? std::string() : VelkoHost::toUtf8(errors.back().description);
}

// Writes one property, reading the text by the property's type as a read of it shows.
void write(ExtensionSession& session, const std::string& name, const std::string& text) {
    const long index = session.propIndex(name);
    if (index < 0) {
        throw UsageError{"no property named " + name};
    }
    const Value current = session.get(index);
    Value value = text;
    if (std::holds_alternative<int>(current)) {
        int number = 0;
        if (!parseInteger(text, number)) {
            throw UsageError{name + " takes an integer, not " + text};
        }
        value = number;
    } else if (std::holds_alternative<bool>(current)) {
        if (text != "true" && text != "false") {
            throw UsageError{name + " takes true or false, not " + text};
        }
        value = text == "true";
    }
    if (!session.set(index, value)) {
        const std::string reason = lastHostError(session);
        throw UsageError{"the object refused " + name + "=" + text +
                             (reason.empty() ? std::string() : ": " + reason),
                         false};
    }
}

std::string text(const Value& value) {
    if (const int* number = std::get_if<int>(&value))
        return std::to_string(*number);
    if (const bool* flag = std::get_if<bool>(&value))
        return *flag ? "true" : "false";
    if (const std::string* utf8 = std::get_if<std::string>(&value))
        return *utf8;
    return "";
}

int pictureResult(ExtensionSession& session) {
    const Value result = session.get("Result");
    return std::holds_alternative<int>(result) ? std::get<int>(result) : 1;
}

// The size from a PNG's header, which starts with the width and height behind the signature
// and the chunk's length and type; false for anything that isn't a PNG.
bool pngSize(const std::vector<unsigned char>& png, unsigned& width, unsigned& height) {
    static const unsigned char kStart[16] = {137, 80, 78, 71, 13,  10,  26,  10,
                                             0,   0,  0,  13, 'I', 'H', 'D', 'R'};
    constexpr size_t kSizeEnd = 24;
    if (png.size() < kSizeEnd || !std::equal(kStart, kStart + 16, png.begin())) {
        return false;
    }
    auto bigEndian = [&](size_t at) {
        return static_cast<unsigned>(png[at]) << 24 | static_cast<unsigned>(png[at + 1]) << 16 |
               static_cast<unsigned>(png[at + 2]) << 8 | png[at + 3];
    };
    width = bigEndian(16);
    height = bigEndian(20);
    return width > 0 && height > 0;
}

bool savePng(const std::vector<unsigned char>& png, const std::string& path, unsigned& width,
             unsigned& height) {
    if (!pngSize(png, width, height)) {
        return false;
    }
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    return static_cast<bool>(file);
}

void writeAll(ExtensionSession& session, const std::vector<Write>& writes) {
    for (const auto& [name, value] : writes) {
        write(session, name, value);
    }
}

// Makes the folder and its parents, as mkdir -p does.
void makeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error || !std::filesystem::is_directory(path)) {
        throw UsageError{"can't make the folder " + path + (error ? ": " + error.message() : ""),
                         false};
    }
}

std::string htmlEscaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '&':
                escaped += "&amp;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

int gallery(const ExtensionLibrary& library, const Options& options) {
    makeFolder(options.gallery);
    std::ostringstream index;
    index << "<!DOCTYPE html>\n<meta charset=\"utf-8\">\n<title>Velko barcode gallery</title>\n"
          << "<table border=\"1\" cellpadding=\"6\">\n"
          << "<tr><th>type</th><th>picture</th><th>value</th><th>settings</th></tr>\n";
    int exit = kClean;
    for (const BarcodeVelko::CodeTypeRow& row : BarcodeVelko::g_codeTypes) {
        const int type = static_cast<int>(row.type);
        ExtensionSession session(library);
        std::vector<Write> writes = {{"Width", std::to_string(row.demoWidth)},
                                     {"Height", std::to_string(row.demoHeight)}};
        writes.insert(writes.end(), options.writes.begin(), options.writes.end());
        writes.insert(writes.end(), {{"CodeAuto", "false"}, {"CodeType", std::to_string(type)}});
        if (row.galleryValue) {
            writes.emplace_back("CodeValue", row.galleryValue);
        }
        writeAll(session, writes);
        char name[64];
        std::snprintf(name, sizeof name, "%02d_%s.png", type, row.name);
        const std::string path = options.gallery + "/" + name;
        unsigned width = 0;
        unsigned height = 0;
        const bool saved = savePng(session.getBarcode(), path, width, height);
        const bool clean = saved && pictureResult(session) == 0;
        const std::string value = text(session.get("CodeText"));
        if (!clean) {
            exit = kErrorPicture;
        }
        if (!options.quiet) {
            std::cout << path << ": "
                      << (!saved  ? "no picture"
                          : clean ? value
                                  : "error picture")
                      << "\n";
        }
        std::string settings;
        for (const auto& [property, setting] : writes) {
            settings += (settings.empty() ? "" : ", ") + property + "=" +
                        (setting.size() > 40 ? setting.substr(0, 37) + "..." : setting);
        }
        index << "<tr><td>" << type << " " << row.name << "</td><td><img src=\"" << name
              << "\"></td><td>" << htmlEscaped(clean ? value : "(error picture)") << "</td><td>"
              << htmlEscaped(settings) << "</td></tr>\n";
    }
    index << "</table>\n";
    std::ofstream(options.gallery + "/index.html") << index.str();
    return exit;
}

// A line on the terminal with count, rate and time left, once a run has taken a second.
class Progress {
public:
    Progress(bool quiet, size_t total) : shown(!quiet && isatty(fileno(stderr))), total(total) {}
    ~Progress() {
        if (drawn) {
            std::cerr << "\r\033[K" << std::flush;
        }
    }

    void update(size_t done) {
        using namespace std::chrono;
        const auto now = steady_clock::now();
        if (!shown || now - start < seconds(1) || now - last < milliseconds(100)) {
            return;
        }
        last = now;
        const double elapsed = duration<double>(now - start).count();
        const double rate = static_cast<double>(done) / elapsed;
        const double left = rate > 0 ? static_cast<double>(total - done) / rate : 0;
        char line[96];
        std::snprintf(line, sizeof line, "\r%zu/%zu  %.0f pictures/s  %.0f s left\033[K", done,
                      total, rate, left);
        std::cerr << line << std::flush;
        drawn = true;
    }

private:
    const bool shown;
    const size_t total;
    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point last = start;
    bool drawn = false;
};

std::vector<std::string> readLines(const std::string& path) {
    std::ifstream file;
    if (path != "-") {
        file.open(path);
        if (!file) {
            throw UsageError{"can't read " + path, false};
        }
    }
    std::istream& in = path == "-" ? std::cin : file;
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(line);
    }
    return lines;
}

// One object draws every value. Between values the flags that a value's write changes go back
// to the settings: the type search, and the raw form that a refused plain value switches on.
int batch(const ExtensionLibrary& library, const Options& options) {
    const std::vector<std::string> values = readLines(options.batch);
    makeFolder(options.out);
    ExtensionSession session(library);
    writeAll(session, options.writes);
    const Value raw = session.get("CodeIsRaw");
    const bool searching = !options.typeGiven && session.get("CodeAuto") == Value(true);
    Progress progress(options.quiet, values.size());
    size_t failed = 0;
    for (size_t i = 0; i < values.size(); ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "%06zu.png", i + 1);
        const std::string path = options.out + "/" + name;
        session.set("CodeIsRaw", raw);
        if (searching) {
            session.set("CodeAuto", true);
        }
        std::string outcome;
        if (!session.set("CodeValue", values[i])) {
            outcome = "refused: " + lastHostError(session);
        } else {
            unsigned width = 0;
            unsigned height = 0;
            const bool saved = savePng(session.getBarcode(), path, width, height);
            outcome = !saved ? "no picture" : pictureResult(session) != 0 ? "error picture" : "";
        }
        if (!outcome.empty()) {
            ++failed;
        }
        if (!options.quiet) {
            std::cout << path << ": "
                      << (outcome.empty() ? "type " + text(session.get("CodeType")) + " " +
                                                text(session.get("CodeText"))
                                          : outcome)
                      << "\n";
        }
        progress.update(i + 1);
    }
    if (!options.quiet) {
        std::cout << values.size() - failed << " of " << values.size() << " clean\n";
    }
    return failed == 0 ? kClean : kErrorPicture;
}

int run(const Options& options) {
    const ExtensionLibrary library(ExtensionLibrary::defaultPath());
    if (!library.loaded()) {
        std::cerr << "velko-barcode: " << library.error() << "\n";
        return kUsageError;
    }
    if (!options.gallery.empty()) {
        return gallery(library, options);
    }
    if (!options.batch.empty()) {
        return batch(library, options);
    }
    ExtensionSession session(library);
    if (!session.object()) {
        std::cerr << "velko-barcode: the library made no object\n";
        return kUsageError;
    }
    if (options.fonts) {
        const Value count = session.get("FontCount");
        const int fonts = std::holds_alternative<int>(count) ? std::get<int>(count) : 0;
        for (int i = 0; i < fonts; ++i) {
            Value name;
            session.call(1, {i}, name);
            if (!options.quiet) {
                std::cout << text(name) << "\n";
            }
        }
        return kClean;
    }
    writeAll(session, options.writes);
    if (options.haveValue) {
        write(session, "CodeValue", options.value);
    }
    unsigned width = 0;
    unsigned height = 0;
    const bool saved = savePng(session.getBarcode(), options.out, width, height);
    const int result = pictureResult(session);
    if (!options.quiet) {
        for (const char* name : {"Result", "CodeType", "CodeText", "CodeCheckSymbol"}) {
            std::cout << name << ": " << text(session.get(name)) << "\n";
        }
        if (saved) {
            std::cout << "PNG: " << width << " x " << height << " -> " << options.out << "\n";
        }
    }
    return result == 0 && saved ? kClean : kErrorPicture;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(parse(argc, argv));
    } catch (const UsageError& error) {
        std::cerr << "velko-barcode: " << error.message << "\n" << (error.showUsage ? kUsage : "");
        return kUsageError;
    }
}
