#pragma once

#include <vector>

#include "layer/graphics/p_abstract_paint_device_wrapper.h"

namespace BarcodeVelko {

// The picture's device, which keeps for each row whether it still repeats the row above, so
// that the PNG step need not compare the rows: rows untouched since the picture was filled
// repeat each other, and the lines copied from a band's first line repeat it. A row drawn on in
// any other way is no longer known to repeat anything.
class RowTrackingDevice : public PAbstractPaintDeviceWrapper {
public:
    explicit RowTrackingDevice(PAbstractPaintDevice* picture);

    void setPixel(int x, int y, unsigned int value) override;
    void fill(unsigned int value) override;
    void fillRect(int x, int y, unsigned width, unsigned height, unsigned int value) override;
    bool copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) override;
    void putRow(int x, int y, const unsigned char* pixels, unsigned count) override;
    // Pixels written through the pointer go unseen: nothing is known from then on.
    unsigned char* pixelData() override;

    // The picture was filled with one colour behind the device.
    void filled();
    // Whether the rows from top on, count of them, are untouched since the fill.
    bool untouched(unsigned top, unsigned count) const;
    // The rows from top on, count of them, untouched until a band drew one line of them and
    // copied it to the others, are now all the same.
    void markBand(unsigned top, unsigned count);
    // For each row, 1 when it is known to repeat the row above, else 0; empty when nothing is
    // known.
    std::vector<unsigned char> repeatedRows() const;

private:
    enum class Row : unsigned char { kUntouched, kDrawn, kRepeatsAbove };

    void drawn(long long top, unsigned long long count);

    std::vector<Row> rows;
    bool known = true;
};

}  // namespace BarcodeVelko
