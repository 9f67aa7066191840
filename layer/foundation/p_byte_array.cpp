#include "layer/foundation/p_byte_array.h"

#include <cstdint>
#include <cstring>

class PByteArrayPrivate {
public:
    PByteArrayPrivate() = default;
    PByteArrayPrivate(const PByteArrayPrivate& other) : cursor(other.cursor) {
        if (allocate(other.size)) {
            std::memcpy(data, other.data, size);
        }
    }
    PByteArrayPrivate& operator=(const PByteArrayPrivate&) = delete;
    ~PByteArrayPrivate() { delete[] data; }

    // Not filled: every caller writes the whole buffer at once, and a picture's buffer is
    // megabytes. False if there is a buffer already or nothing to allocate.
    bool allocate(uint32_t bytes) {
        if (data || bytes == 0) {
            return false;
        }
        data = new unsigned char[bytes];
        size = bytes;
        return true;
    }

    unsigned char* data = nullptr;
    uint32_t size = 0;
    uint32_t cursor = 0;
};

PByteArray::PByteArray() = default;

PByteArray::PByteArray(unsigned char value, unsigned long size) {
    if (size > 0) {
        d = std::make_shared<PByteArrayPrivate>();
        d->allocate(static_cast<uint32_t>(size));
        std::memset(d->data, value, d->size);
    }
}

PByteArray::PByteArray(const unsigned char* data, unsigned long size) {
    if (data && size > 0) {
        d = std::make_shared<PByteArrayPrivate>();
        d->allocate(static_cast<uint32_t>(size));
        std::memcpy(d->data, data, d->size);
    }
}

PByteArray::PByteArray(const char* text)
    : PByteArray(reinterpret_cast<const unsigned char*>(text), text ? std::strlen(text) + 1 : 0) {}

PByteArray::PByteArray(const PByteArray& other) = default;
PByteArray::PByteArray(PByteArray&& other) noexcept = default;
PByteArray& PByteArray::operator=(const PByteArray& other) = default;
PByteArray& PByteArray::operator=(PByteArray&& other) noexcept = default;
PByteArray::~PByteArray() = default;

void PByteArray::detach() {
    if (d && d.use_count() > 1) {
        d = std::make_shared<PByteArrayPrivate>(*d);
    }
}

unsigned long PByteArray::size() const {
    return d ? d->size : 0;
}

const unsigned char* PByteArray::constData() const {
    return d ? d->data : nullptr;
}

unsigned char* PByteArray::data() {
    detach();
    return d ? d->data : nullptr;
}

unsigned char PByteArray::operator[](unsigned long index) const {
    return d->data[d->cursor + index];
}

unsigned char& PByteArray::operator[](unsigned long index) {
    detach();
    return d->data[d->cursor + index];
}

unsigned char* PByteArray::operator*() {
    detach();
    return d && d->data ? d->data + d->cursor : nullptr;
}

PByteArray& PByteArray::operator++() {
    detach();
    if (d && d->cursor + 1 < d->size) {
        ++d->cursor;
    }
    return *this;
}

PByteArray& PByteArray::operator++(int) {
    return ++*this;
}

PByteArray& PByteArray::operator--() {
    detach();
    if (d && d->cursor > 0) {
        --d->cursor;
    }
    return *this;
}

PByteArray& PByteArray::operator--(int) {
    return --*this;
}
