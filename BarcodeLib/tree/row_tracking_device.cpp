#include "BarcodeLib/tree/row_tracking_device.h"

#include <algorithm>

namespace BarcodeVelko {

RowTrackingDevice::RowTrackingDevice(PAbstractPaintDevice* picture)
    : PAbstractPaintDeviceWrapper(picture), rows(height(), Row::kUntouched) {}

void RowTrackingDevice::setPixel(int x, int y, unsigned int value) {
    drawn(y, 1);
    PAbstractPaintDeviceWrapper::setPixel(x, y, value);
}

void RowTrackingDevice::fill(unsigned int value) {
    PAbstractPaintDeviceWrapper::fill(value);
    filled();
}

void RowTrackingDevice::fillRect(int x, int y, unsigned width, unsigned height,
                                 unsigned int value) {
    drawn(y, height);
    PAbstractPaintDeviceWrapper::fillRect(x, y, width, height, value);
}

bool RowTrackingDevice::copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) {
    drawn(toY, height);
    return PAbstractPaintDeviceWrapper::copyRect(x, y, width, height, toX, toY);
}

void RowTrackingDevice::putRow(int x, int y, const unsigned char* pixels, unsigned count) {
    drawn(y, 1);
    PAbstractPaintDeviceWrapper::putRow(x, y, pixels, count);
}

unsigned char* RowTrackingDevice::pixelData() {
    known = false;
    return PAbstractPaintDeviceWrapper::pixelData();
}

void RowTrackingDevice::filled() {
    std::fill(rows.begin(), rows.end(), Row::kUntouched);
}

bool RowTrackingDevice::untouched(unsigned top, unsigned count) const {
    return top <= rows.size() && count <= rows.size() - top &&
           std::all_of(rows.begin() + top, rows.begin() + top + count,
                       [](Row row) { return row == Row::kUntouched; });
}

void RowTrackingDevice::markBand(unsigned top, unsigned count) {
    if (count == 0 || top >= rows.size() || count > rows.size() - top) {
        return;
    }
    // The band's first line in the picture may be its last as drawn (a picture turned by 180
    // degrees); either way the rows are all alike.
    std::fill(rows.begin() + top + 1, rows.begin() + top + count, Row::kRepeatsAbove);
}

std::vector<unsigned char> RowTrackingDevice::repeatedRows() const {
    std::vector<unsigned char> repeated;
    if (!known) {
        return repeated;
    }
    repeated.resize(rows.size());
    for (size_t y = 1; y < rows.size(); ++y) {
        repeated[y] = rows[y] == Row::kRepeatsAbove ||
                      (rows[y] == Row::kUntouched && rows[y - 1] == Row::kUntouched);
    }
    return repeated;
}

// The drawn rows, and the row below them: it was like the row above, which has changed.
void RowTrackingDevice::drawn(long long top, unsigned long long count) {
    const long long size = static_cast<long long>(rows.size());
    // A row at a time, as glyphs are drawn.
    if (count == 1 && top >= 0 && top < size) {
        rows[top] = Row::kDrawn;
        if (top + 1 < size && rows[top + 1] == Row::kRepeatsAbove) {
            rows[top + 1] = Row::kDrawn;
        }
        return;
    }
    const long long from = std::max(0LL, top);
    const long long to =
        std::min(size, top + static_cast<long long>(std::min<unsigned long long>(count, size)));
    if (from >= to) {
        return;
    }
    std::fill(rows.begin() + from, rows.begin() + to, Row::kDrawn);
    if (to < size && rows[to] == Row::kRepeatsAbove) {
        rows[to] = Row::kDrawn;
    }
}

}  // namespace BarcodeVelko
