#include "layer/GS1/gs1.h"

#include <cctype>
#include <exception>
#include <string>

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

// An application identifier in brackets: "(", two to four digits, ")".
struct Identifier {
    size_t start;
    size_t digits;
};

// The first identifier in text from `from` on.
bool findIdentifier(const std::string& text, size_t from, Identifier& found) {
    constexpr size_t kMinDigits = 2;
    constexpr size_t kMaxDigits = 4;
    for (size_t open = text.find('(', from); open != std::string::npos;
         open = text.find('(', open + 1)) {
        size_t digits = 0;
        while (digits < kMaxDigits && open + 1 + digits < text.size() &&
               std::isdigit(static_cast<unsigned char>(text[open + 1 + digits])) != 0) {
            ++digits;
        }
        // Fewer digits than were read would be followed by a digit, not by ")".
        if (digits >= kMinDigits && open + 1 + digits < text.size() &&
            text[open + 1 + digits] == ')') {
            found = {open, digits};
            return true;
        }
    }
    return false;
}

}  // namespace

std::string text2gs1raw(const std::string& text, PError* error) {
    try {
        const std::string t = trimed(text);
        const std::map<std::string, GS1IdSection>& table = gs1IdTable();
        std::string result;
        size_t pos = 0;
        while (pos < t.size()) {
            Identifier match;
            // Every element starts where the one before it ended: text between two elements
            // would otherwise be skipped, and the next data read from the wrong place.
            if (!findIdentifier(t, pos, match) || match.start != pos) {
                throw Refusal{0, "Not gs1 code", __LINE__};
            }
            const std::string ai = t.substr(match.start + 1, match.digits);
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
            const size_t dataStart = pos + match.digits + 2;
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
                Identifier next;
                const size_t partEnd = findIdentifier(t, end, next) ? next.start : t.size();
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
