#include "BarcodeLib/linear/visitor_size_2of5.h"

namespace BarcodeVelko {

VisitorSize2of5::VisitorSize2of5(unsigned rootMinWidth, unsigned, unsigned canvasWidth,
                                 unsigned canvasHeight, unsigned fontSize)
    : VisitorSizeLinear(rootMinWidth, canvasWidth, canvasHeight, fontSize) {}

}  // namespace BarcodeVelko
