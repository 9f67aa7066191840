#pragma once

namespace BarcodeVelko {

class AbstractBarcodeComposite;

// Appends a pattern of '0' (light) and '1' (dark) modules to target, one leaf per run.
// With last set, the run that ends the pattern is flagged as the symbol's last.
void encode_line(const char* pattern, AbstractBarcodeComposite* target, bool control,
                 unsigned customData, bool last);

}  // namespace BarcodeVelko
