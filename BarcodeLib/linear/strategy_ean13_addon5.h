#pragma once

#include "BarcodeLib/linear/strategy_ean13_addon2.h"

namespace BarcodeVelko {

// EAN-13 with a 5-digit add-on: the tree of the 2-digit member, with the parity of the add-on
// digits taken from a weighted sum of them.
class StrategyEAN13AddOn5 : public StrategyEAN13AddOn2 {
public:
    // For each weighted sum mod 10, 1 where the add-on digit takes the even set.
    static const unsigned char g_abAddonParity[10][5];

    const wchar_t* getDemoValue() override;

protected:
    size_t getAddOnLength() override;
    bool isEvenDigit(const std::wstring& addOn, size_t place) override;
    bool isAddOnEndFlagged() override;
};

}  // namespace BarcodeVelko
