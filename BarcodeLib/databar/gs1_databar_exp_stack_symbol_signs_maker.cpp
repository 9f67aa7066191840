#include "BarcodeLib/databar/gs1_databar_exp_stack_symbol_signs_maker.h"

#include <cstddef>

#include "BarcodeLib/databar/gs1_databar_exp_stack_tables.h"
#include "BarcodeLib/databar/rss_widths.h"

namespace {

constexpr size_t kCharacterBits = 12;
constexpr int kMinDataCharacters = 3;
constexpr int kMaxDataCharacters = 21;
constexpr int kSetElements = 4;
constexpr int kCheckModulus = 211;
constexpr int kBlockElements = 21;
constexpr int kGuard[] = {1, 1};

int finders(int dataCharacters) {
    return (dataCharacters + 2) / 2;
}

}  // namespace

bool GS1DatabarExpStackSymbolSignsMaker::MakeDataSymbolSigns(
    const std::string& binary, std::vector<GS1DatabarExpStackSign>& signs, int& n) const {
    signs.clear();
    n = static_cast<int>(binary.size() / kCharacterBits);
    if (binary.size() % kCharacterBits != 0 || n < kMinDataCharacters || n > kMaxDataCharacters) {
        return false;
    }
    for (int i = 0; i < n; ++i) {
        SymbolSignData data{binary.substr(i * kCharacterBits, kCharacterBits), 0};
        for (char bit : data.bits) {
            data.value = data.value * 2 + (bit == '1' ? 1 : 0);
        }
        GS1DatabarExpStackSign sign;
        CalcSymbolSign(data.value, sign);
        signs.push_back(sign);
    }
    return true;
}

bool GS1DatabarExpStackSymbolSignsMaker::MakeCheckSymbolSign(
    const std::string&, int n, const std::vector<GS1DatabarExpStackSign>& signs,
    GS1DatabarExpStackSign& check) const {
    if (n < kMinDataCharacters || n > kMaxDataCharacters || signs.size() < static_cast<size_t>(n)) {
        return false;
    }
    int sum = 0;
    for (int i = 0; i < n; ++i) {
        const int* weights = g_aiCheckWeights[CalcTable14Row(n + 1, i)];
        for (int e = 0; e < kSignElements; ++e) {
            sum += signs[i][e] * weights[e];
        }
    }
    CalcSymbolSign(kCheckModulus * (n - kMinDataCharacters) + sum % kCheckModulus, check);
    return true;
}

void GS1DatabarExpStackSymbolSignsMaker::MakeBarcodeElements(
    const std::vector<GS1DatabarExpStackSign>& signs, int n, const GS1DatabarExpStackSign& check,
    std::vector<int>& elements) const {
    const int finderCount = finders(n);
    const int* sequence = g_aiFinderSequences[finderCount - kMinFinders];
    elements.assign(kFinderPatternElements * finderCount + kSignElements * (n + 1) + 4, 0);
    elements[0] = kGuard[0];
    elements[1] = kGuard[1];
    for (int e = 0; e < kSignElements; ++e) {
        elements[2 + e] = check[e];
    }
    for (int f = 0; f < finderCount; ++f) {
        const int* pattern = g_aiFinderPatterns[sequence[f] - 1];
        for (int e = 0; e < kFinderPatternElements; ++e) {
            elements[10 + kBlockElements * f + e] = pattern[e];
        }
    }
    // Around each finder but the first: a character in order on its left, a mirrored one on
    // its right.
    for (int j = 0; 2 * j < n; ++j) {
        for (int e = 0; e < kSignElements; ++e) {
            elements[15 + kBlockElements * j + e] = signs[2 * j][kSignElements - 1 - e];
        }
        if (2 * j + 1 < n) {
            for (int e = 0; e < kSignElements; ++e) {
                elements[23 + kBlockElements * j + e] = signs[2 * j + 1][e];
            }
        }
    }
    elements[elements.size() - 2] = kGuard[1];
    elements[elements.size() - 1] = kGuard[0];
}

void GS1DatabarExpStackSymbolSignsMaker::CalcSymbolSign(int value, GS1DatabarExpStackSign& sign) {
    int group = 0;
    while (group + 1 < kValueGroupCount && g_aValueGroups[group + 1].firstValue <= value) {
        ++group;
    }
    const GS1DatabarExpStackValueGroup& g = g_aValueGroups[group];
    const int rest = value - g.firstValue;
    sign.assign(kSignElements, 0);
    int widths[kSetElements];
    getRSSwidths(rest / g.evenCombinations, g.oddModules, kSetElements, g.widestOdd, false, widths);
    GetElementsWidths(widths, sign, 0);
    getRSSwidths(rest % g.evenCombinations, g.evenModules, kSetElements, g.widestEven, true,
                 widths);
    GetElementsWidths(widths, sign, 1);
}

int GS1DatabarExpStackSymbolSignsMaker::CalcTable14Row(int characters, int i) {
    const int finderCount = (characters + 1) / 2;
    const int finder = g_aiFinderSequences[finderCount - kMinFinders][(i + 1) / 2];
    return 2 * finder - i % 2 - 2;
}

void GS1DatabarExpStackSymbolSignsMaker::GetElementsWidths(const int* widths,
                                                           GS1DatabarExpStackSign& sign,
                                                           int first) {
    for (int e = 0; e < kSetElements; ++e) {
        sign[first + 2 * e] = widths[e];
    }
}
