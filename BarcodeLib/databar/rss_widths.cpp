#include "BarcodeLib/databar/rss_widths.h"

int combins(int n, int r) {
    // Multiplying from the top while dividing by the smaller factorial keeps every step whole.
    const int smaller = n - r > r ? r : n - r;
    const int larger = n - smaller;
    int result = 1;
    int divisor = 1;
    for (int factor = n; factor > larger; --factor) {
        result *= factor;
        if (divisor <= smaller) {
            result /= divisor;
            ++divisor;
        }
    }
    for (; divisor <= smaller; ++divisor) {
        result /= divisor;
    }
    return result;
}

void getRSSwidths(int value, int modules, int elements, int maxWidth, bool noNarrow, int* widths) {
    // Bit e set: every element before e is narrow, so far as they are fixed.
    int narrowMask = 0;
    int element = 0;
    for (; element < elements - 1; ++element) {
        const int after = elements - element - 1;  // elements still to come behind this one
        int width = 1;
        int patterns = 0;
        narrowMask |= 1 << element;
        for (;; ++width, narrowMask &= ~(1 << element)) {
            // Patterns of the rest once this element takes width modules.
            patterns = combins(modules - width - 1, after - 1);
            if (!noNarrow && narrowMask == 0 && modules - width - after >= after) {
                patterns -= combins(modules - width - after - 1, after - 1);
            }
            if (after > 1) {
                int tooWide = 0;
                for (int widest = modules - width - (after - 1); widest > maxWidth; --widest) {
                    tooWide += combins(modules - width - widest - 1, after - 2);
                }
                patterns -= tooWide * after;
            } else if (modules - width > maxWidth) {
                --patterns;
            }
            value -= patterns;
            if (value < 0) {
                break;
            }
        }
        value += patterns;
        modules -= width;
        widths[element] = width;
    }
    widths[element] = modules;
}
