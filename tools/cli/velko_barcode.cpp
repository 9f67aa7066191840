// velko-barcode: renders barcodes through the extension library, driven by our own host.

#include <unistd.h>

#include <lodepng.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "BarcodeLib/facade/code_types.h"
#include "layer/foundation/base64.h"
#include "layer/foundation/string_helpers.h"
#include "tools/cli/code_type_names.h"
#include "tools/cli/font_names.h"
#include "tools/cli/label.h"
#include "tools/cli/library_choice.h"
#include "tools/cli/ordered_pool.h"
#include "tools/cli/reader_module.h"
#include "tools/cli/text_check.h"
#include "tools/cli/warnings.h"
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
    "velko-barcode --types | --fonts | --version | --help\n"
    "  -t, --type TYPE       write CodeAuto=false, then CodeType=TYPE: a number from 0 to 24 or\n"
    "                        a name that --types lists (ean13, qr, datamatrix-gs1, ...)\n"
    "  -s, --set NAME=VALUE  write any property by its English or Russian name; the value is\n"
    "                        read by the property's type: an integer (decimal or 0x hex),\n"
    "                        true/false, or text. Font takes a name that --fonts lists, in\n"
    "                        either column: \"DejaVuSans-Bold\" or \"DejaVu Sans:style=Bold\",\n"
    "                        or a family alone, as fc-list prints them\n"
    "  -b, --base64          the value is Base64 (InputDataType=1)\n"
    "      --logo FILE       a PNG file for LogoImage (sent as Base64), drawn on a QR Code at\n"
    "                        LogoSizePercentFromBarcode=15 unless that is written too\n"
    "                        -t, -s, -b and --logo are written in the order given, the value last\n"
    "  -o, --out PATH        the PNG to write, a name ending in .png (default barcode.png), or\n"
    "                        - for standard output; with --batch, the folder (default .)\n"
    "      --batch FILE      one value a line (FILE - is standard input), each drawn with the\n"
    "                        same settings into OUT/NNNNNN.png, NNNNNN the line number; an\n"
    "                        error picture goes to OUT/NNNNNN.error.png, a blank line is\n"
    "                        reported and skipped\n"
    "  -j, --jobs N          --batch on N threads (default: one a core); the pictures are the\n"
    "                        same as on one\n"
    "      --verify          read each picture back with zxing-cpp (libdmtx for Data Matrix),\n"
    "                        on white inside its quiet zone, and compare it with the value: a\n"
    "                        picture that reads otherwise or not at all counts as an error;\n"
    "                        Code 16K and Standard 2 of 5 are not verifiable. Also warns of\n"
    "                        characters of the human-readable line that did not fit\n"
    "      --gallery DIR     the demo value of every code type into DIR, one PNG each, named by\n"
    "                        type number and symbology, at a size that fits it, with index.html\n"
    "      --fonts           list the fonts (FontCount, FontAt), one a line, with fc-list's name\n"
    "      --types           list the code types: number, name, demo value, what each accepts\n"
    "  -q, --quiet           print nothing on standard output\n"
    "      --version         the tool's version and the library it loads: $VELKO_EXTENSION\n"
    "                        where set, else the one installed beside the tool, else the build's\n"
    "  -h, --help\n"
    "Exit: 0 every picture is a clean barcode, 1 some picture shows an error (its reason on\n"
    "standard error) or fails --verify, 2 a usage error, a write the object refused, or a\n"
    "folder or file that can't be made, written or read. Warnings go to standard error.\n";

enum Exit { kClean = 0, kErrorPicture = 1, kUsageError = 2 };

const char kPngSuffix[] = ".png";
const char kBuiltInFont[] = "default";
constexpr long kFontAt = 1;
constexpr long kFindFont = 2;
const char kStandardOutput[] = "-";

// One property write: the name and the text of its value.
using Write = std::pair<std::string, std::string>;

struct Options {
    std::vector<Write> writes;
    bool typeGiven = false;
    std::string out;
    std::string batch;
    std::string gallery;
    bool fonts = false;
    bool types = false;
    bool version = false;
    bool quiet = false;
    bool verify = false;
    unsigned jobs = std::max(1u, std::thread::hardware_concurrency());
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

constexpr char kLogoSize[] = "LogoSizePercentFromBarcode";
constexpr char kLogoSizeRussian[] = "ЛоготипРазмерПроцентОтШК";
constexpr char kDefaultLogoSize[] = "15";

std::string readLogo(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path)) {
        throw UsageError{"can't read the logo " + path, false};
    }
    const std::string bytes((std::istreambuf_iterator<char>(file)),
                            std::istreambuf_iterator<char>());
    unsigned width = 0;
    unsigned height = 0;
    LodePNGState state;
    lodepng_state_init(&state);
    const unsigned error =
        lodepng_inspect(&width, &height, &state,
                        reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    lodepng_state_cleanup(&state);
    if (error != 0) {
        throw UsageError{"the logo " + path + " is not a PNG file", false};
    }
    return raw2Base64(bytes);
}

bool endsWithPng(const std::string& path) {
    const std::size_t length = sizeof kPngSuffix - 1;
    if (path.size() <= length) {
        return false;
    }
    return str_tolower(path.substr(path.size() - length)) == kPngSuffix;
}

Options parse(int argc, char** argv) {
    if (argc < 2) {
        throw UsageError{};
    }
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
            const std::string name = argument(i);
            const int type = VelkoCli::codeTypeNamed(name);
            if (type < 0) {
                throw UsageError{"no code type " + name + ": --types lists them", false};
            }
            options.writes.emplace_back("CodeAuto", "false");
            options.writes.emplace_back("CodeType", std::to_string(type));
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
            options.writes.emplace_back("LogoImage", readLogo(argument(i)));
        } else if (arg == "-o" || arg == "--out") {
            options.out = argument(i);
        } else if (arg == "--batch") {
            options.batch = argument(i);
        } else if (arg == "--gallery") {
            options.gallery = argument(i);
        } else if (arg == "--verify") {
            options.verify = true;
        } else if (arg == "-j" || arg == "--jobs") {
            const std::string count = argument(i);
            int jobs = 0;
            if (!parseInteger(count, jobs) || jobs < 1) {
                throw UsageError{"-j takes a count of threads, not " + count};
            }
            options.jobs = static_cast<unsigned>(jobs);
        } else if (arg == "--fonts") {
            options.fonts = true;
        } else if (arg == "--types") {
            options.types = true;
        } else if (arg == "--version") {
            options.version = true;
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
    if (options.batch.empty() && options.out != kStandardOutput && !endsWithPng(options.out)) {
        throw UsageError{"-o takes a name ending in .png, or -, not " + options.out};
    }
    const auto written = [&](const char* name) {
        return std::any_of(options.writes.begin(), options.writes.end(),
                           [&](const Write& write) { return write.first == name; });
    };
    if (written("LogoImage") && !written(kLogoSize) && !written(kLogoSizeRussian)) {
        options.writes.emplace_back(kLogoSize, kDefaultLogoSize);
    }
    return options;
}

std::string lastHostError(ExtensionSession& session) {
    const auto& errors = session.host().errors;
    return errors.empty() ? std::string() : VelkoHost::toUtf8(errors.back().description);
}

bool knownFont(ExtensionSession& session, const std::string& name) {
    Value known;
    return session.call(kFindFont, {name}, known) && known == Value(true);
}

// The library's name of a font the user may have named as fc-list does. The library itself
// takes a name it doesn't know without a word, and draws with its built-in font.
std::string libraryFont(ExtensionSession& session, const std::string& name) {
    if (name == kBuiltInFont || knownFont(session, name)) {
        return name;
    }
    const std::string translated = VelkoCli::libraryFontName(name);
    if (translated.empty() || !knownFont(session, translated)) {
        throw UsageError{"no font " + name + ": --fonts lists them", false};
    }
    return translated;
}

// A property write resolved once: its index and the text read as the value it stands for.
struct ResolvedWrite {
    long index;
    Write write;
    Value value;
};

// Reads the text by the property's type as a read of it shows.
ResolvedWrite resolve(ExtensionSession& session, const std::string& name, const std::string& text) {
    const long index = session.propIndex(name);
    if (index < 0) {
        throw UsageError{"no property named " + name};
    }
    const Value current = session.get(index);
    Value value = index == session.propIndex("Font") ? libraryFont(session, text) : text;
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
    return {index, {name, text}, value};
}

void write(ExtensionSession& session, const ResolvedWrite& resolved) {
    if (!session.set(resolved.index, resolved.value)) {
        const std::string reason = lastHostError(session);
        const auto& [name, text] = resolved.write;
        throw UsageError{"the object refused " + name + "=" + text +
                             (reason.empty() ? std::string() : ": " + reason),
                         false};
    }
}

void write(ExtensionSession& session, const std::string& name, const std::string& text) {
    write(session, resolve(session, name, text));
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

void writePicture(const std::vector<unsigned char>& png, const std::filesystem::path& path) {
    const auto* bytes = reinterpret_cast<const char*>(png.data());
    const auto size = static_cast<std::streamsize>(png.size());
    if (path == kStandardOutput) {
        if (!std::cout.write(bytes, size).flush()) {
            throw UsageError{"can't write the picture to standard output", false};
        }
        return;
    }
    std::ofstream file(path, std::ios::binary);
    file.write(bytes, size);
    if (!file) {
        throw UsageError{"can't write " + path.string(), false};
    }
}

void warn(const std::string& where, const std::vector<std::string>& warnings) {
    for (const std::string& warning : warnings) {
        std::cerr << "velko-barcode: " << where << "warning: " << warning << "\n";
    }
}

// What the user hears on standard error about a picture: why it is an error picture, what the
// reading found unless the picture reads as asked, and the warnings.
void tell(const std::string& path, const VelkoCli::Label& label) {
    const std::string where = path + ": ";
    if (!label.clean) {
        std::cerr << "velko-barcode: " << where << label.reason << "\n";
    } else if (label.verified && label.verification.verdict != VelkoCli::Verdict::Clean) {
        std::cerr << "velko-barcode: " << where << label.verification.describe() << "\n";
    }
    warn(where, label.warnings);
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
        const VelkoCli::Label label =
            VelkoCli::drawLabel(session, row.galleryValue ? row.galleryValue : "", options.verify);
        writePicture(label.png, path);
        if (!label.good()) {
            exit = kErrorPicture;
        }
        if (!options.quiet) {
            std::cout << path << ": " << (label.clean ? label.text : "error picture") << "\n";
        }
        tell(path, label);
        std::string settings;
        for (const auto& [property, setting] : writes) {
            settings += (settings.empty() ? "" : ", ") + property + "=" +
                        (setting.size() > 40 ? setting.substr(0, 37) + "..." : setting);
        }
        index << "<tr><td>" << type << " " << row.name << "</td><td><img src=\"" << name
              << "\"></td><td>" << htmlEscaped(label.clean ? label.text : "(error picture)")
              << "</td><td>" << htmlEscaped(settings) << "</td></tr>\n";
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
        if (std::filesystem::is_directory(path)) {
            throw UsageError{path + " is a folder, not a file of values", false};
        }
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
    if (in.bad()) {
        throw UsageError{"can't read " + path, false};
    }
    return lines;
}

// What became of one line of a batch.
struct BatchLine {
    std::string path;
    std::string report;
    bool blank = false;
    // Left empty, so not good, for a value the object refused.
    VelkoCli::Label label;
};

bool blank(const std::string& line) {
    return line.find_first_not_of(" \t") == std::string::npos;
}

// With --verify a second object, set up as the first, draws the human-readable line in a colour
// of its own.
std::shared_ptr<ExtensionSession> textProbe(const ExtensionLibrary& library, const Options& options,
                                            ExtensionSession& session) {
    if (!options.verify) {
        return nullptr;
    }
    auto probe = std::make_shared<ExtensionSession>(library);
    writeAll(*probe, options.writes);
    VelkoCli::setUpTextProbe(*probe, session);
    return probe;
}

// One object a thread draws its share of the values. Between values the flags that a value's
// write changes go back to the settings: the type search, and the raw form that a refused plain
// value switches on; the logo, which lasts one picture, is written again.
std::function<BatchLine(size_t)> batchJob(const ExtensionLibrary& library, const Options& options,
                                          const std::vector<std::string>& values) {
    auto session = std::make_shared<ExtensionSession>(library);
    writeAll(*session, options.writes);
    const std::shared_ptr<ExtensionSession> probe = textProbe(library, options, *session);
    // Resolved here once, not again for each value.
    std::vector<ResolvedWrite> logo;
    for (const auto& [name, text] : options.writes) {
        const long index = session->propIndex(name);
        if (index == session->propIndex("LogoImage") || index == session->propIndex(kLogoSize)) {
            logo.push_back(resolve(*session, name, text));
        }
    }
    const Value raw = session->get("CodeIsRaw");
    const bool searching = !options.typeGiven && session->get("CodeAuto") == Value(true);
    const auto take = [=](ExtensionSession& object, const std::string& value) {
        object.set("CodeIsRaw", raw);
        if (searching) {
            object.set("CodeAuto", true);
        }
        for (const ResolvedWrite& logoWrite : logo) {
            write(object, logoWrite);
        }
        return object.set("CodeValue", value);
    };
    return [=, &options, &values](size_t i) {
        BatchLine line;
        char name[32];
        std::snprintf(name, sizeof name, "%06zu", i + 1);
        if (blank(values[i])) {
            line.blank = true;
            line.report = std::string("line ") + std::to_string(i + 1) + ": blank, skipped";
            return line;
        }
        if (!take(*session, values[i])) {
            line.report = "line " + std::to_string(i + 1) + ": refused: " + lastHostError(*session);
            return line;
        }
        if (probe) {
            take(*probe, values[i]);
        }
        line.label = VelkoCli::drawLabel(*session, values[i], options.verify, probe.get());
        const std::string suffix = line.label.clean ? ".png" : ".error.png";
        line.path = (std::filesystem::path(options.out) / (name + suffix)).string();
        writePicture(line.label.png, line.path);
        line.report = line.path + ": " +
                      (line.label.clean ? "type " + line.label.type + " " + line.label.text
                                        : "error picture");
        return line;
    };
}

int batch(const ExtensionLibrary& library, const Options& options) {
    const std::vector<std::string> values = readLines(options.batch);
    makeFolder(options.out);
    {
        // Settings that the object refuses end the run before any thread starts.
        ExtensionSession session(library);
        writeAll(session, options.writes);
        warn("", VelkoCli::settingWarnings(session, options.writes));
    }
    Progress progress(options.quiet, values.size());
    // The lines that gave no clean label, named together at the end.
    std::vector<std::string> failures;
    size_t blanks = 0;
    size_t good = 0;
    VelkoCli::runInOrder<BatchLine>(
        values.size(), options.jobs, [&] { return batchJob(library, options, values); },
        [&](size_t i, BatchLine& line) {
            if (!options.quiet && !line.blank) {
                std::cout << line.report << "\n";
            }
            if (!line.path.empty()) {
                tell(line.path, line.label);
            }
            if (line.blank) {
                ++blanks;
                failures.push_back(line.report);
            } else if (line.label.good()) {
                ++good;
            } else {
                failures.push_back("line " + std::to_string(i + 1) + ": not clean: \"" + values[i] +
                                   "\"");
            }
            progress.update(i + 1);
        });
    if (!options.quiet) {
        std::cout << good << " of " << values.size() - blanks << " clean";
        if (blanks != 0) {
            std::cout << ", " << blanks << " blank line" << (blanks == 1 ? "" : "s") << " skipped";
        }
        std::cout << "\n";
    }
    for (const std::string& failure : failures) {
        std::cerr << "velko-barcode: " << failure << "\n";
    }
    return failures.size() == blanks ? kClean : kErrorPicture;
}

int run(const Options& options) {
    if (options.types) {
        VelkoCli::printCodeTypes(std::cout);
        return kClean;
    }
    const VelkoCli::LibraryChoice choice = VelkoCli::chooseLibrary();
    const ExtensionLibrary library(choice.path);
    if (options.version) {
        std::cout << "velko-barcode " << VELKO_VERSION << "\nlibrary " << choice.path << " ("
                  << choice.source << ")\n";
    }
    if (!library.loaded()) {
        std::cerr << "velko-barcode: " << library.error() << "\n";
        return kUsageError;
    }
    if (options.version) {
        return kClean;
    }
    if (options.verify && !VelkoCli::ReaderModule::instance().loaded()) {
        std::cerr << "velko-barcode: --verify: " << VelkoCli::ReaderModule::instance().error()
                  << "\n";
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
        const std::map<std::string, std::string> fcNames = VelkoCli::fcFontNames();
        for (int i = 0; i < fonts; ++i) {
            Value name;
            session.call(kFontAt, {i}, name);
            const auto fcName = fcNames.find(text(name));
            if (!options.quiet) {
                std::cout << text(name)
                          << (fcName == fcNames.end() ? std::string() : "\t" + fcName->second)
                          << "\n";
            }
        }
        return kClean;
    }
    writeAll(session, options.writes);
    warn("", VelkoCli::settingWarnings(session, options.writes));
    if (options.haveValue) {
        write(session, "CodeValue", options.value);
    }
    const std::shared_ptr<ExtensionSession> probe = textProbe(library, options, session);
    if (probe && options.haveValue) {
        write(*probe, "CodeValue", options.value);
    }
    const VelkoCli::Label label =
        VelkoCli::drawLabel(session, options.value, options.verify, probe.get());
    const bool toStandardOutput = options.out == kStandardOutput;
    if (!label.png.empty()) {
        const std::filesystem::path folder = std::filesystem::path(options.out).parent_path();
        if (!folder.empty()) {
            makeFolder(folder.string());
        }
        writePicture(label.png, options.out);
    }
    if (!options.quiet) {
        // Standard output may be the picture itself.
        std::ostream& report = toStandardOutput ? std::cerr : std::cout;
        report << "Result: " << text(session.get("Result")) << "\n";
        // The check symbol of an error picture is a stale one.
        for (const char* name : {"CodeType", "CodeText", "CodeCheckSymbol"}) {
            report << name << ": " << (label.clean ? text(session.get(name)) : "") << "\n";
        }
        if (!label.png.empty()) {
            report << "PNG: " << label.width << " x " << label.height << " -> " << options.out
                   << "\n";
        }
        if (label.clean && label.verified) {
            report << "Verify: " << label.verification.describe() << "\n";
        }
    }
    tell(options.out, label);
    return label.good() ? kClean : kErrorPicture;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(parse(argc, argv));
    } catch (const UsageError& error) {
        if (!error.message.empty()) {
            std::cerr << "velko-barcode: " << error.message << "\n";
        }
        std::cerr << (error.showUsage ? kUsage : "");
        return kUsageError;
    }
}
