#pragma once

#include <cstddef>

namespace BarcodeVelko {

class AbstractBarcodeComposite;

// A leaf of a width and height of its own, dark or light.
struct LeafRun {
    bool dark;
    unsigned width;
    unsigned height;
    bool last;
};

// Appends a pattern of '0' (light) and '1' (dark) modules to target, one leaf per run.
// With last set, the run that ends the pattern is flagged as the symbol's last.
void encode_line(const char* pattern, AbstractBarcodeComposite* target, bool control,
                 unsigned customData, bool last);

// Appends a leaf for each run, in the storage encode_line uses: for symbols whose runs are not
// one module high, or are given as widths.
void encode_runs(const LeafRun* runs, std::size_t count, AbstractBarcodeComposite* target);

}  // namespace BarcodeVelko
