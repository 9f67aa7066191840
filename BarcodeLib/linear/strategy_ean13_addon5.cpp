#include "BarcodeLib/linear/strategy_ean13_addon5.h"

namespace BarcodeVelko {

namespace {

const unsigned kWeights[5] = {3, 9, 3, 9, 3};

}  // namespace

const unsigned char StrategyEAN13AddOn5::g_abAddonParity[10][5] = {
    {1, 1, 0, 0, 0}, {1, 0, 1, 0, 0}, {1, 0, 0, 1, 0}, {1, 0, 0, 0, 1}, {0, 1, 1, 0, 0},
    {0, 0, 1, 1, 0}, {0, 0, 0, 1, 1}, {0, 1, 0, 1, 0}, {0, 1, 0, 0, 1}, {0, 0, 1, 0, 1},
};

const wchar_t* StrategyEAN13AddOn5::getDemoValue() {
    return L"123456789012812345";
}

size_t StrategyEAN13AddOn5::getAddOnLength() {
    return kTextLayoutEAN2;
}

// The row of the parity table is the weighted sum mod 10, which isn't encoded itself.
bool StrategyEAN13AddOn5::isEvenDigit(const std::wstring& addOn, size_t place) {
    unsigned sum = 0;
    for (size_t i = 0; i < 5; ++i) {
        sum += kWeights[i] * static_cast<unsigned>(addOn.at(i) - L'0');
    }
    return g_abAddonParity[sum % 10][place] != 0;
}

bool StrategyEAN13AddOn5::isAddOnEndFlagged() {
    return true;
}

}  // namespace BarcodeVelko
