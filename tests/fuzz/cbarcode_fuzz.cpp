// CBarcode through the host's interfaces, as the platform drives it: a code type, property
// writes, a value, a picture, and more writes and pictures after it.
//
// The input is text, one command a line:
//   first line     the code type (CodeAuto=false, then CodeType), "auto", or "none": no Init
//   NAME=VALUE     a property write by English or Russian name; #INDEX=VALUE by index
//   =TEXT          CodeValue
//   ~N=TEXT        CodeValue: TEXT repeated to N characters, at most 20000
//   @FontAt=VALUE  a method call with one parameter (@FindFont likewise)
//   !              the host's next allocation fails
//   init, done     Init or Done, whether or not the object has its facade
//   --             GetBarcode, and every property read back
// A value is typed by a prefix: i: integer, d: double, b: Boolean, s: text, n: empty; without
// one it is an integer when it reads as one, else text. A picture is taken at the end as well.

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tests/fuzz/fuzz_host.h"

using VelkoHost::ExtensionSession;
using VelkoHost::Value;

namespace {

constexpr std::size_t kMaxLines = 64;
constexpr int kMaxPictures = 3;
// Pictures larger than this only cost time here; the sizes up to 8000 have tests of their own.
constexpr int kMaxSide = 1200;
constexpr long long kMaxRepeated = 20000;
constexpr long kWidth = 24;
constexpr long kHeight = 25;

bool readInt(std::string_view text, long long& number) {
    if (text.empty() || text.size() > 20) {
        return false;
    }
    const std::string copy(text);
    char* end = nullptr;
    errno = 0;
    number = std::strtoll(copy.c_str(), &end, 10);
    return errno == 0 && end == copy.c_str() + copy.size();
}

int clampedInt(long long number) {
    return static_cast<int>(std::clamp<long long>(number, -2147483647LL - 1, 2147483647LL));
}

Value typed(std::string_view text) {
    const std::string_view rest = text.size() >= 2 ? text.substr(2) : std::string_view();
    long long number = 0;
    if (text.size() >= 2 && text[1] == ':') {
        switch (text[0]) {
            case 'i':
                return readInt(rest, number) ? Value(clampedInt(number)) : Value(0);
            case 'd':
                return Value(std::strtod(std::string(rest).c_str(), nullptr));
            case 'b':
                return Value(!rest.empty() && rest[0] != '0');
            case 's':
                return Value(std::string(rest));
            case 'n':
                return Value();
            default:
                break;
        }
    }
    return readInt(text, number) ? Value(clampedInt(number)) : Value(std::string(text));
}

Value withinPicture(long index, Value value) {
    if (index == kWidth || index == kHeight) {
        if (int* number = std::get_if<int>(&value)) {
            *number = std::min(*number, kMaxSide);
        } else if (double* real = std::get_if<double>(&value)) {
            *real = std::min(*real, double(kMaxSide));
        }
    }
    return value;
}

std::vector<std::string_view> linesOf(const uint8_t* data, size_t size) {
    std::vector<std::string_view> lines;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    while (!rest.empty() && lines.size() < kMaxLines) {
        const std::size_t end = rest.find('\n');
        lines.push_back(rest.substr(0, end));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    return lines;
}

void picture(ExtensionSession& session, int& pictures) {
    if (pictures++ < kMaxPictures) {
        session.getBarcode();
        VelkoFuzz::readEverything(session);
    }
}

}  // namespace

extern "C" int VelkoFuzzCodeType(const uint8_t* data, size_t size) {
    const std::vector<std::string_view> lines = linesOf(data, size);
    long long type = -1;
    return !lines.empty() && readInt(lines[0], type) ? clampedInt(type) : -1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<std::string_view> lines = linesOf(data, size);
    const bool initialised = lines.empty() || lines[0] != "none";
    ExtensionSession session(VelkoFuzz::library(), true, initialised);
    if (!session.object()) {
        std::abort();
    }
    const int type = VelkoFuzzCodeType(data, size);
    if (initialised && !lines.empty() && lines[0] != "auto") {
        session.set("CodeAuto", false);
        session.set("CodeType", type);
    }
    int pictures = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        if (line == "--") {
            picture(session, pictures);
        } else if (line == "!") {
            session.memory().failNextAllocation();
        } else if (line == "init") {
            session.init();
        } else if (line == "done") {
            session.done();
        } else if (!line.empty() && line[0] == '=') {
            session.set("CodeValue", std::string(line.substr(1)));
        } else if (const std::size_t equals = line.find('=');
                   !line.empty() && line[0] == '~' && equals != std::string_view::npos) {
            // Long values, past what any picture can show, from a short input.
            long long length = 0;
            const std::string_view unit = line.substr(equals + 1);
            if (readInt(line.substr(1, equals - 1), length) && !unit.empty()) {
                std::string value;
                while (static_cast<long long>(value.size()) < std::min(length, kMaxRepeated)) {
                    value += unit;
                }
                session.set("CodeValue", value);
            }
        } else if (const std::size_t equals = line.find('='); equals != std::string_view::npos) {
            const std::string_view name = line.substr(0, equals);
            const Value value = typed(line.substr(equals + 1));
            long long index = -1;
            if (name == "@FontAt" || name == "@FindFont") {
                Value result;
                session.call(name == "@FontAt" ? 1 : 2, {value}, result);
            } else if (!name.empty() && name[0] == '#' && readInt(name.substr(1), index)) {
                session.set(static_cast<long>(index),
                            withinPicture(static_cast<long>(index), value));
            } else {
                const long found = session.propIndex(std::string(name));
                session.set(found, withinPicture(found, value));
            }
        }
    }
    picture(session, pictures);
    VelkoFuzz::readEverything(session);
    VelkoFuzz::checkBooks(session);
    return 0;
}
