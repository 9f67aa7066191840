#include "layer/foundation/p_logger.h"

#include <cstdarg>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <ostream>

class PLoggerPrivate {
public:
    bool owned = false;
    std::mutex mutex;
    std::ostream* stream = nullptr;

    ~PLoggerPrivate() {
        if (owned) {
            delete stream;
        }
    }
};

PLogger::PLogger() : d(std::make_unique<PLoggerPrivate>()) {}

PLogger::PLogger(std::ostream* stream) : PLogger() {
    d->stream = stream;
}

PLogger::PLogger(const std::string& path) : PLogger() {
    d->stream = new std::ofstream(path, std::ios::out | std::ios::trunc);
    d->owned = true;
}

PLogger::~PLogger() = default;

bool PLogger::isOpened() const {
    return d->stream && !d->stream->fail();
}

template <class T>
PLogger& PLogger::write(const T& value) {
    if (isOpened()) {
        std::lock_guard<std::mutex> lock(d->mutex);
        *d->stream << value;
        d->stream->flush();
        d->stream->clear();
    }
    return *this;
}

PLogger& PLogger::operator<<(short value) {
    return write(value);
}
PLogger& PLogger::operator<<(unsigned short value) {
    return write(value);
}
PLogger& PLogger::operator<<(int value) {
    return write(value);
}
PLogger& PLogger::operator<<(unsigned int value) {
    return write(value);
}
PLogger& PLogger::operator<<(long value) {
    return write(value);
}
PLogger& PLogger::operator<<(unsigned long value) {
    return write(value);
}
PLogger& PLogger::operator<<(long long value) {
    return write(value);
}
PLogger& PLogger::operator<<(unsigned long long value) {
    return write(value);
}
PLogger& PLogger::operator<<(float value) {
    return write(value);
}
PLogger& PLogger::operator<<(double value) {
    return write(value);
}
PLogger& PLogger::operator<<(long double value) {
    return write(value);
}
PLogger& PLogger::operator<<(bool value) {
    return write(value);
}
PLogger& PLogger::operator<<(const std::string& value) {
    return write(value);
}

int PLogger::addNote(const char* format, ...) {
    if (!isOpened()) {
        return -1;
    }
    char note[4096];
    va_list args;
    va_start(args, format);
    const int length = std::vsnprintf(note, sizeof(note), format, args);
    va_end(args);
    if (length > 0) {
        write(std::string(note));
    }
    return length;
}
