#pragma once

#include <string>
#include <vector>

// One symbol character: its 12 bits and their value.
struct SymbolSignData {
    std::string bits;
    int value;
};

// The element widths of one symbol character: odd-set widths at the even places.
using GS1DatabarExpStackSign = std::vector<int>;

// From the binary string to the widths of a GS1 DataBar Expanded symbol: the data characters,
// the check character, and the whole element list with guards and finders.
class GS1DatabarExpStackSymbolSignsMaker {
public:
    // Each 12 bits of binary make a data character; n: their number. False unless binary is 3
    // to 21 whole characters long.
    bool MakeDataSymbolSigns(const std::string& binary, std::vector<GS1DatabarExpStackSign>& signs,
                             int& n) const;
    // The check character over the n data characters: their widths weighted by each one's place
    // next to its finder, and the symbol's character count.
    bool MakeCheckSymbolSign(const std::string& binary, int n,
                             const std::vector<GS1DatabarExpStackSign>& signs,
                             GS1DatabarExpStackSign& check) const;
    // Left guard, the check character, the finders with the data characters around them (the
    // right one of a pair mirrored), right guard: 5F + 8(n + 1) + 4 widths for F = (n + 2) / 2
    // finders. 21 widths from place 2 on make one block of 49 modules.
    void MakeBarcodeElements(const std::vector<GS1DatabarExpStackSign>& signs, int n,
                             const GS1DatabarExpStackSign& check, std::vector<int>& elements) const;

    // The widths of a character value, 0 to 4191.
    static void CalcSymbolSign(int value, GS1DatabarExpStackSign& sign);
    // The row of check weights of data character i in a symbol of characters characters, the
    // check character included.
    static int CalcTable14Row(int characters, int i);
    // Copies 4 widths of getRSSwidths to every second place of sign, from first on.
    static void GetElementsWidths(const int* widths, GS1DatabarExpStackSign& sign, int first);
};
