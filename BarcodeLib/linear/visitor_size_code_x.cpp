#include "BarcodeLib/linear/visitor_size_code_x.h"

namespace BarcodeVelko {

VisitorSizeCodeX::VisitorSizeCodeX(unsigned rootMinWidth, unsigned, unsigned canvasWidth,
                                   unsigned canvasHeight, unsigned fontSize, unsigned)
    : VisitorSizeLinear(rootMinWidth, canvasWidth, canvasHeight, fontSize) {}

}  // namespace BarcodeVelko
