#include "BarcodeLib/tree/row_tracking_device.h"

#include <algorithm>

namespace BarcodeVelko {

RowTrackingDevice::RowTrackingDevice(PAbstractPaintDevice* picture)
    : PAbstractPaintDeviceWrapper(picture), rows(height()), pictureWidth(width()) {}

void RowTrackingDevice::setPixel(int x, int y, unsigned int value) {
    drawn(x, 1, y, 1);
    PAbstractPaintDeviceWrapper::setPixel(x, y, value);
}

void RowTrackingDevice::fill(unsigned int value) {
    PAbstractPaintDeviceWrapper::fill(value);
    std::fill(rows.begin(), rows.end(), Row());
}

void RowTrackingDevice::fillRect(int x, int y, unsigned width, unsigned height,
                                 unsigned int value) {
    drawn(x, width, y, height);
    PAbstractPaintDeviceWrapper::fillRect(x, y, width, height, value);
}

bool RowTrackingDevice::copyRect(int x, int y, unsigned width, unsigned height, int toX, int toY) {
    drawn(toX, width, toY, height);
    return PAbstractPaintDeviceWrapper::copyRect(x, y, width, height, toX, toY);
}

void RowTrackingDevice::putRect(int x, int y, const unsigned char* pixels, unsigned pitch,
                                unsigned width, unsigned height) {
    drawn(x, width, y, height);
    PAbstractPaintDeviceWrapper::putRect(x, y, pixels, pitch, width, height);
}

unsigned char* RowTrackingDevice::pixelData() {
    known = false;
    return PAbstractPaintDeviceWrapper::pixelData();
}

bool RowTrackingDevice::untouched(unsigned top, unsigned count) const {
    return top <= rows.size() && count <= rows.size() - top &&
           std::all_of(rows.begin() + top, rows.begin() + top + count,
                       [](const Row& row) { return row.state == State::kUntouched; });
}

void RowTrackingDevice::markBand(unsigned top, unsigned count) {
    if (count == 0 || top >= rows.size() || count > rows.size() - top) {
        return;
    }
    // The band's first line in the picture may be its last as drawn (a picture turned by 180
    // degrees); either way the rows are all alike.
    for (unsigned y = top + 1; y < top + count; ++y) {
        rows[y].state = State::kRepeatsAbove;
    }
}

void RowTrackingDevice::markCopy(unsigned from, unsigned to, unsigned count, unsigned left,
                                 unsigned width) {
    if (count == 0 || from >= rows.size() || to >= rows.size() ||
        count > rows.size() - std::max(from, to)) {
        return;
    }
    for (unsigned i = 1; i < count; ++i) {
        rows[to + i].state = repeatsAbove(from + i) ? State::kRepeatsAbove : State::kDrawn;
    }
    // A row copied to the row next to it: outside the copied columns both are as filled.
    const bool downwards = from + 1 == to;
    const Row& copied = rows[from];
    if (count == 1 && (downwards || to + 1 == from) && copied.left >= left &&
        copied.right <= left + width) {
        rows[downwards ? to : from].state = State::kRepeatsAbove;
    }
}

std::vector<unsigned char> RowTrackingDevice::repeatedRows() const {
    std::vector<unsigned char> repeated;
    if (!known) {
        return repeated;
    }
    repeated.resize(rows.size());
    for (std::size_t y = 1; y < rows.size(); ++y) {
        repeated[y] = repeatsAbove(y);
    }
    return repeated;
}

bool RowTrackingDevice::repeatsAbove(std::size_t y) const {
    return y > 0 &&
           (rows[y].state == State::kRepeatsAbove ||
            (rows[y].state == State::kUntouched && rows[y - 1].state == State::kUntouched));
}

// The drawn rows, and the row below them: it was like the row above, which has changed.
void RowTrackingDevice::drawn(long long x, unsigned long long width, long long top,
                              unsigned long long count) {
    const long long size = static_cast<long long>(rows.size());
    const long long from = std::max(0LL, top);
    const long long to =
        std::min(size, top + static_cast<long long>(std::min<unsigned long long>(count, size)));
    if (from >= to || width == 0) {
        return;
    }
    const long long widest = pictureWidth;
    const auto left = static_cast<unsigned>(std::clamp(x, 0LL, widest));
    const auto right = static_cast<unsigned>(std::clamp(
        x + static_cast<long long>(std::min<unsigned long long>(width, widest)), 0LL, widest));
    for (Row* row = rows.data() + from; row < rows.data() + to; ++row) {
        row->state = State::kDrawn;
        row->left = std::min(row->left, left);
        row->right = std::max(row->right, right);
    }
    if (to < size && rows[to].state == State::kRepeatsAbove) {
        rows[to].state = State::kDrawn;
    }
}

}  // namespace BarcodeVelko
