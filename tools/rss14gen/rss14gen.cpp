// Writes the element widths of every RSS-14 data character as C++ source, so that the strategy
// looks them up instead of working them out for each symbol.

#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

namespace {

// One group of data character values with the same odd and even module counts: the data
// character tables of ISO/IEC 24724 for GS1 DataBar Omnidirectional (outside and inside
// characters): first value, modules and widest element of the odd and the even set, and the
// number of combinations of the set that counts fastest (T even outside, T odd inside).
struct Group {
    unsigned first;
    unsigned oddModules;
    unsigned oddWidest;
    unsigned evenModules;
    unsigned evenWidest;
    unsigned total;
};

const Group kOutside[] = {
    {0, 12, 8, 4, 1, 1},     {161, 10, 6, 6, 3, 10},   {961, 8, 4, 8, 5, 34},
    {2015, 6, 3, 10, 6, 70}, {2715, 4, 1, 12, 8, 126},
};
const unsigned kOutsideCount = 2841;

const Group kInside[] = {
    {0, 5, 2, 10, 7, 4},
    {336, 7, 4, 8, 5, 20},
    {1036, 9, 6, 6, 3, 48},
    {1516, 11, 8, 4, 1, 81},
};
const unsigned kInsideCount = 1597;

using Widths = std::vector<unsigned>;

// Every way of splitting modules over four elements no wider than widest, in ascending order of
// the first element, then the second, and so on; this order is the value order of the standard.
// With needNarrow, only the ways that keep at least one element of a single module.
std::vector<Widths> combinations(unsigned modules, unsigned widest, bool needNarrow) {
    std::vector<Widths> result;
    for (unsigned a = 1; a <= widest; ++a) {
        for (unsigned b = 1; b <= widest; ++b) {
            for (unsigned c = 1; c <= widest; ++c) {
                if (a + b + c >= modules) {
                    continue;
                }
                const unsigned d = modules - a - b - c;
                if (d > widest) {
                    continue;
                }
                if (needNarrow && a > 1 && b > 1 && c > 1 && d > 1) {
                    continue;
                }
                result.push_back({a, b, c, d});
            }
        }
    }
    return result;
}

// The eight widths of each value, odd-set elements at even positions. The outside characters
// count the even combinations fastest and keep a narrow even element; the inside ones count the
// odd combinations fastest and keep a narrow odd element.
bool expand(const Group* groups, size_t groupCount, unsigned valueCount, bool outside,
            std::vector<Widths>& rows) {
    for (size_t g = 0; g < groupCount; ++g) {
        const Group& group = groups[g];
        const unsigned end = g + 1 < groupCount ? groups[g + 1].first : valueCount;
        const std::vector<Widths> odd = combinations(group.oddModules, group.oddWidest, !outside);
        const std::vector<Widths> even = combinations(group.evenModules, group.evenWidest, outside);
        // A set may have more combinations than its group uses: only the first ones count.
        const size_t fastest = group.total;
        const size_t slowest = outside ? odd.size() : even.size();
        if (fastest > (outside ? even.size() : odd.size()) || (end - group.first) % fastest != 0 ||
            (end - group.first) / fastest > slowest) {
            std::cerr << "group at " << group.first << " doesn't fit its combinations\n";
            return false;
        }
        for (unsigned value = group.first; value < end; ++value) {
            const unsigned slow = static_cast<unsigned>((value - group.first) / fastest);
            const unsigned fast = static_cast<unsigned>((value - group.first) % fastest);
            const Widths& o = odd[outside ? slow : fast];
            const Widths& e = even[outside ? fast : slow];
            rows.push_back({o[0], e[0], o[1], e[1], o[2], e[2], o[3], e[3]});
        }
    }
    return true;
}

void writeTable(std::ostream& out, const char* name, const std::vector<Widths>& rows,
                const Group* groups, size_t groupCount) {
    out << "const unsigned char StrategyRSS14::" << name << "[" << rows.size() << "][8] = {\n";
    size_t g = 0;
    for (size_t value = 0; value < rows.size(); ++value) {
        if (g < groupCount && groups[g].first == value) {
            out << "// from " << value << ": odd " << groups[g].oddModules << " modules, widest "
                << groups[g].oddWidest << "; even " << groups[g].evenModules << " modules, widest "
                << groups[g].evenWidest << "\n";
            ++g;
        }
        out << "{";
        for (size_t i = 0; i < 8; ++i) {
            out << rows[value][i] << (i < 7 ? "," : "");
        }
        out << "},";
        const bool groupEnds = g < groupCount && groups[g].first == value + 1;
        out << ((value % 6 == 5 || groupEnds || value + 1 == rows.size()) ? "\n" : "");
    }
    out << "};\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: velko-rss14gen <output.cpp>\n";
        return 2;
    }
    std::vector<Widths> outside;
    std::vector<Widths> inside;
    if (!expand(kOutside, std::size(kOutside), kOutsideCount, true, outside) ||
        !expand(kInside, std::size(kInside), kInsideCount, false, inside)) {
        return 1;
    }
    std::ofstream out(argv[1]);
    out << "// Generated by tools/rss14gen from the data character groups of ISO/IEC 24724 for\n"
           "// GS1 DataBar Omnidirectional (RSS-14); do not edit. Each row holds the eight "
           "element\n"
           "// widths of one data character value, odd-set widths at even positions.\n"
           "// clang-format off\n"
           "#include \"BarcodeLib/strategy_rss14.h\"\n\n"
           "namespace BarcodeVelko {\n\n"
           "// Outside data characters, 16 modules.\n";
    writeTable(out, "g_auOutsidePatterns", outside, kOutside, std::size(kOutside));
    out << "\n// Inside data characters, 15 modules.\n";
    writeTable(out, "g_auInsidePatterns", inside, kInside, std::size(kInside));
    out << "\n}  // namespace BarcodeVelko\n";
    return out ? 0 : 1;
}
