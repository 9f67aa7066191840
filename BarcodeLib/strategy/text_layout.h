#pragma once

namespace BarcodeVelko {

// The values of TextAlign: where the human-readable line stands under the bars. The three EAN
// layouts group the digits between the guard bars.
enum TextLayout : unsigned {
    kTextCentre = 0,
    kTextLeft = 1,
    kTextRight = 2,
    kTextFull = 3,
    kTextLayoutEAN1 = 4,  // first digit outside, two groups inside
    kTextLayoutEAN2 = 5,  // first and last digits outside
    kTextLayoutEAN3 = 6,  // two groups inside, nothing outside
};

constexpr unsigned kLastTextLayout = kTextLayoutEAN3;

}  // namespace BarcodeVelko
