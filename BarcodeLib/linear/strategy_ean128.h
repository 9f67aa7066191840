#pragma once

#include <string>
#include <vector>

#include "BarcodeLib/linear/strategy_code128.h"

namespace BarcodeVelko {

// EAN-128: Code 128 with GS1 element strings. A bracketed value goes through text2gs1raw; FNC1
// opens the data, and a separator between elements is the control character GS. A value that
// isn't an element string, or one the table refuses, is plain Code 128.
class StrategyEAN128 : public StrategyCode128 {
public:
    // FNC1 in a translated code string.
    static constexpr wchar_t kFNC1 = 0xFFFF;
    // FNC1 as the value may carry it, and as the start marker first becomes.
    static constexpr wchar_t kFNC1Value = 232;
    // The ASCII group separator that the separator marker becomes.
    static constexpr wchar_t kGS = 29;

    bool checkRaw(const wchar_t* code) override;
    bool generate(const wchar_t* code, AbstractBarcodeElement** element, int textAlign, int textPos,
                  bool showCS, int first, int second, int ecl, int param,
                  std::wstring& codeText) override;
    const wchar_t* getDemoValue() override;

    // FNC1 exists in every set and never switches on its own.
    unsigned encodeAs(wchar_t c, unsigned current) override;
    // FNC1 takes the set of what follows it.
    unsigned encodeAs(wchar_t c, wchar_t next, unsigned current) override;
    std::vector<unsigned> symbolValues(const wchar_t* code) override;

    // code: the value with FNC1 and GS for the markers; text: the value without markers, as it
    // is shown. False if nothing is left to encode. Throws Unexpected for null.
    bool translateRaw(const wchar_t* value, std::wstring& code, std::wstring& text);

protected:
    unsigned characterValue(wchar_t c) override;
};

}  // namespace BarcodeVelko
