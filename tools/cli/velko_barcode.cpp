// velko-barcode: renders barcodes through the extension library, driven by our own host.

#include <lodepng.h>

#include <cstdio>
#include <cstdlib>
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
    "  -t, --type N          write CodeAuto=false, then CodeType=N\n"
    "  -s, --set NAME=VALUE  write any property by its English or Russian name; repeatable, in "
    "the\n"
    "                        order given; the value is read by the property's type: an integer\n"
    "                        (decimal or 0x hex), true/false, or text\n"
    "  -b, --base64          the value is Base64 (InputDataType=1)\n"
    "      --logo FILE       a PNG file for LogoImage (sent as Base64)\n"
    "  -o, --out FILE        the PNG to write (default barcode.png)\n"
    "      --gallery DIR     the demo value of every code type into DIR, one PNG each, named by\n"
    "                        type number and symbology, at a size that fits it\n"
    "      --fonts           list the fonts (FontCount, FontAt), one a line\n"
    "  -q, --quiet           print nothing\n"
    "  -h, --help\n";

enum Exit { kClean = 0, kErrorPicture = 1, kUsageError = 2 };

struct Options {
    std::vector<std::pair<std::string, std::string>> sets;
    std::string type;
    bool base64 = false;
    std::string logo;
    std::string out = "barcode.png";
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
            options.type = argument(i);
        } else if (arg == "-s" || arg == "--set") {
            const std::string assignment = argument(i);
            const auto equals = assignment.find('=');
            if (equals == std::string::npos || equals == 0) {
                throw UsageError{"--set takes NAME=VALUE, not " + assignment};
            }
            options.sets.emplace_back(assignment.substr(0, equals), assignment.substr(equals + 1));
        } else if (arg == "-b" || arg == "--base64") {
            options.base64 = true;
        } else if (arg == "--logo") {
            options.logo = argument(i);
        } else if (arg == "-o" || arg == "--out") {
            options.out = argument(i);
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

std::string readBase64(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw UsageError{"can't read " + path};
    }
    return raw2Base64(
        std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>()));
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

bool savePng(const std::vector<unsigned char>& png, const std::string& path, unsigned& width,
             unsigned& height) {
    lodepng::State state;
    if (png.empty() || lodepng_inspect(&width, &height, &state, png.data(), png.size()) != 0) {
        return false;
    }
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    return static_cast<bool>(file);
}

int gallery(const ExtensionLibrary& library, const Options& options) {
    for (const BarcodeVelko::CodeTypeRow& row : BarcodeVelko::g_codeTypes) {
        const int type = static_cast<int>(row.type);
        ExtensionSession session(library);
        write(session, "Width", std::to_string(row.demoWidth));
        write(session, "Height", std::to_string(row.demoHeight));
        for (const auto& [name, value] : options.sets) {
            write(session, name, value);
        }
        write(session, "CodeAuto", "false");
        write(session, "CodeType", std::to_string(type));
        char name[64];
        std::snprintf(name, sizeof name, "%02d_%s.png", type, row.name);
        const std::string path = options.gallery + "/" + name;
        unsigned width = 0;
        unsigned height = 0;
        const bool saved = savePng(session.getBarcode(), path, width, height);
        if (!options.quiet) {
            std::cout << path << ": "
                      << (!saved                        ? "no picture"
                          : pictureResult(session) == 0 ? text(session.get("CodeText"))
                                                        : "error picture")
                      << "\n";
        }
    }
    return kClean;
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
    for (const auto& [name, value] : options.sets) {
        write(session, name, value);
    }
    if (!options.type.empty()) {
        write(session, "CodeAuto", "false");
        write(session, "CodeType", options.type);
    }
    if (options.base64) {
        write(session, "InputDataType", "1");
    }
    if (!options.logo.empty()) {
        write(session, "LogoImage", readBase64(options.logo));
    }
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
