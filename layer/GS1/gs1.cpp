#include "layer/GS1/gs1.h"

#include <exception>
#include <regex>

#include "layer/GS1/gs1_id_table.h"
#include "layer/foundation/string_helpers.h"

namespace {

const char kModule[] = "layer/GS1/gs1.cpp";

// Thrown inside text2gs1raw only, to leave the loop with the error of a refusal.
struct Refusal {
    int code;
    std::string message;
    int line;
};

}  // namespace

std::string text2gs1raw(const std::string& text, PError* error) {
    try {
        const std::string t = trimed(text);
        static const std::regex identifier("\\(([0-9]{2,4})\\)");
        const std::map<std::string, GS1IdSection>& table = gs1IdTable();
        std::string result;
        size_t pos = 0;
        auto search = [&](size_t from, std::smatch& match) {
            return std::regex_search(t.begin() + static_cast<std::ptrdiff_t>(from), t.end(), match,
                                     identifier);
        };
        while (pos < t.size()) {
            std::smatch match;
            // Every element starts where the one before it ended: text between two elements
            // would otherwise be skipped, and the next data read from the wrong place.
            if (!search(pos, match) || match.position(0) != 0) {
                throw Refusal{0, "Not gs1 code", __LINE__};
            }
            const std::string ai = match.str(1);
            const auto row = table.find(ai);
            if (row == table.end()) {
                if (pos == 0) {
                    throw Refusal{0, "Not gs1 code", __LINE__};
                }
                throw Refusal{100, "No such gs1 code: " + ai, __LINE__};
            }
            const GS1IdSection& section = row->second;
            if (pos == 0) {
                result += kGS1StartMarker;
            }
            const size_t dataStart = pos + static_cast<size_t>(match.length(0));
            size_t end = dataStart + section.fixedLength;
            if (t.size() < end) {
                throw Refusal{100,
                              "Unsuffisient code size [" + std::to_string(t.size()) + "," +
                                  std::to_string(end + 1) + "]",
                              __LINE__};
            }
            // 7240 is carried by its data alone.
            if (ai != "7240") {
                result += ai;
            }
            result.append(t, dataStart, section.fixedLength);
            if (section.variableLength != 0) {
                std::smatch next;
                const size_t partEnd =
                    search(end, next) ? end + static_cast<size_t>(next.position(0)) : t.size();
                if (partEnd - end > section.variableLength) {
                    throw Refusal{100, "Vary code part exeed standart", __LINE__};
                }
                result.append(t, end, partEnd - end);
                end = partEnd;
            }
            if (section.separator != 0 && end < t.size()) {
                result += kGS1SeparatorMarker;
            }
            pos = end;
        }
        if (error) {
            *error = PError();
        }
        return result;
    } catch (const Refusal& refusal) {
        if (error) {
            *error = PError(refusal.code, refusal.message, kModule, "text2gs1raw", refusal.line);
        }
        return text;
    } catch (const std::exception& e) {
        if (error) {
            *error = PError(1, e.what(), kModule, "text2gs1raw", __LINE__);
        }
    } catch (...) {
        if (error) {
            *error = PError(1, "Unexpected", kModule, "text2gs1raw", __LINE__);
        }
    }
    return std::string();
}

std::string gs1raw2text(const std::string&, PError* error) {
    if (error) {
        *error = PError(1, "not yet implemented", kModule, "gs1raw2text", __LINE__);
    }
    return std::string();
}
