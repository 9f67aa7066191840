#include "tools/cli/gs1_elements.h"

#include "layer/GS1/gs1.h"
#include "layer/GS1/gs1_id_table.h"

namespace VelkoCli {

namespace {

constexpr char kGroupSeparator = '\x1D';
constexpr size_t kShortestAI = 2;
constexpr size_t kLongestAI = 4;

std::string withoutMarkers(const std::string& raw) {
    std::string plain = raw;
    const std::string start = kGS1StartMarker;
    if (plain.compare(0, start.size(), start) == 0) {
        plain.erase(0, start.size());
    }
    const std::string separator = kGS1SeparatorMarker;
    for (size_t at = plain.find(separator); at != std::string::npos;
         at = plain.find(separator, at)) {
        plain.replace(at, separator.size(), 1, kGroupSeparator);
    }
    return plain;
}

}  // namespace

std::vector<GS1Element> gs1Elements(const std::string& raw) {
    const std::string plain = withoutMarkers(raw);
    const auto& table = gs1IdTable();
    std::vector<GS1Element> elements;
    size_t pos = 0;
    while (pos < plain.size()) {
        auto row = table.end();
        size_t length = kShortestAI;
        for (; length <= kLongestAI && row == table.end(); ++length) {
            row = table.find(plain.substr(pos, length));
        }
        --length;
        if (row == table.end() || pos + length + row->second.fixedLength > plain.size()) {
            return {};
        }
        GS1Element element{row->first, plain.substr(pos + length, row->second.fixedLength)};
        pos += length + row->second.fixedLength;
        if (row->second.variableLength != 0) {
            const size_t end = std::min(plain.find(kGroupSeparator, pos), plain.size());
            element.data += plain.substr(pos, end - pos);
            pos = end;
        }
        if (pos < plain.size() && plain[pos] == kGroupSeparator) {
            ++pos;
        }
        elements.push_back(element);
    }
    return elements;
}

std::string bracketed(const std::vector<GS1Element>& elements) {
    std::string text;
    for (const GS1Element& element : elements) {
        text += "(" + element.ai + ")" + element.data;
    }
    return text;
}

std::vector<GS1Element> parseBracketed(const std::string& text, std::string* why) {
    PError error;
    const std::string raw = text2gs1raw(text, &error);
    if (error.code() != 0 || raw.compare(0, sizeof kGS1StartMarker - 1, kGS1StartMarker) != 0) {
        if (why) {
            *why = error.message().toStdString();
        }
        return {};
    }
    return gs1Elements(raw);
}

}  // namespace VelkoCli
