#pragma once

#include "BarcodeLib/linear/visitor_size_2of5.h"

namespace BarcodeVelko {

// Codabar is sized as the 2 of 5 symbols are.
class VisitorSizeCodaBar : public VisitorSize2of5 {
public:
    using VisitorSize2of5::VisitorSize2of5;
};

}  // namespace BarcodeVelko
