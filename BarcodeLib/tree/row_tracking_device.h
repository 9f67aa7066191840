#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "layer/graphics/p_abstract_paint_device_wrapper.h"

namespace BarcodeVelko {

// The picture's device, which keeps for each row whether it still repeats the row above, so
// that the PNG step need not compare the rows: rows untouched since the picture was filled
// repeat each other, and copies of a band's first line or of a row above repeat it. A row drawn
// on in any other way is no longer known to repeat anything.
class RowTrackingDevice : public PAbstractPaintDeviceWrapper {
public:
    explicit RowTrackingDevice(PAbstractPaintDevice* picture);

    void setPixel(int x, int y, unsigned int value) override;
    void fill(unsigned int value) override;
    void fillRect(int x, int y, unsigned width, unsigned height, unsigned int value) override;
    bool copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) override;
    void putRect(int x, int y, const unsigned char* pixels, unsigned pitch, unsigned width,
                 unsigned height) override;
    // Pixels written through the pointer go unseen: nothing is known from then on.
    unsigned char* pixelData() override;

    // Whether the rows from top on, count of them, are untouched since the fill.
    bool untouched(unsigned top, unsigned count) const;
    // The rows from top on, count of them, untouched until a band drew one line of them and
    // copied it to the others, are now all the same.
    void markBand(unsigned top, unsigned count);
    // The rows from to on, count of them, untouched until the columns from left on, width of
    // them, were copied into them from as many rows from `from` on, repeat the row above where
    // those did; a single row copied from the row next to it, drawn on in those columns only,
    // repeats it.
    void markCopy(unsigned from, unsigned to, unsigned count, unsigned left, unsigned width);
    // For each row, 1 when it is known to repeat the row above, else 0; empty when nothing is
    // known.
    std::vector<unsigned char> repeatedRows() const;

private:
    enum class State : unsigned char { kUntouched, kDrawn, kRepeatsAbove };
    // A row's state, and the columns drawn on since the fill (none: left past right).
    struct Row {
        State state = State::kUntouched;
        unsigned left = std::numeric_limits<unsigned>::max();
        unsigned right = 0;
    };

    void drawn(long long x, unsigned long long width, long long top, unsigned long long count);
    bool repeatsAbove(std::size_t y) const;

    std::vector<Row> rows;
    // The picture's, for each drawing's columns: asked of the picture it is two calls.
    unsigned pictureWidth;
    bool known = true;
};

}  // namespace BarcodeVelko
