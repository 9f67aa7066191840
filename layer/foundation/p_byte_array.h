#pragma once

#include <memory>

class PByteArrayPrivate;

// Bytes with copy-on-write sharing. The cursor lives in the shared block: copies that share
// the bytes share the cursor too, until one of them detaches.
class PByteArray {
public:
    PByteArray();
    PByteArray(unsigned char value, unsigned long size);
    PByteArray(const unsigned char* data, unsigned long size);
    // The text with its terminating zero, which the size counts.
    explicit PByteArray(const char* text);
    PByteArray(const PByteArray& other);
    PByteArray(PByteArray&& other) noexcept;
    PByteArray& operator=(const PByteArray& other);
    PByteArray& operator=(PByteArray&& other) noexcept;
    ~PByteArray();

    unsigned long size() const;
    bool isEmpty() const { return size() == 0; }

    const unsigned char* constData() const;
    const unsigned char* data() const { return constData(); }
    unsigned char* data();

    // Indexed from the cursor.
    unsigned char operator[](unsigned long index) const;
    unsigned char& operator[](unsigned long index);
    unsigned char* operator*();

    // The cursor stays within [0, size - 1]; postfix forms give the array itself as well.
    PByteArray& operator++();
    PByteArray& operator++(int);
    PByteArray& operator--();
    PByteArray& operator--(int);

    void detach();

private:
    std::shared_ptr<PByteArrayPrivate> d;
};
