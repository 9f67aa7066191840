#pragma once

#include <iosfwd>
#include <memory>
#include <string>

class PLoggerPrivate;

// Thread-safe text output: each value is written and flushed under the logger's mutex. A
// logger that isn't open swallows everything.
class PLogger {
public:
    PLogger();
    // The stream stays the caller's.
    explicit PLogger(std::ostream* stream);
    // Truncates the file.
    explicit PLogger(const std::string& path);
    ~PLogger();
    PLogger(const PLogger&) = delete;
    PLogger& operator=(const PLogger&) = delete;

    bool isOpened() const;

    PLogger& operator<<(short value);
    PLogger& operator<<(unsigned short value);
    PLogger& operator<<(int value);
    PLogger& operator<<(unsigned int value);
    PLogger& operator<<(long value);
    PLogger& operator<<(unsigned long value);
    PLogger& operator<<(long long value);
    PLogger& operator<<(unsigned long long value);
    PLogger& operator<<(float value);
    PLogger& operator<<(double value);
    PLogger& operator<<(long double value);
    PLogger& operator<<(bool value);
    PLogger& operator<<(const std::string& value);

    // The formatted length, or -1 when the logger isn't open. Notes longer than 4095 bytes are
    // cut.
    int addNote(const char* format, ...) __attribute__((format(printf, 2, 3)));

private:
    template <class T>
    PLogger& write(const T& value);

    std::unique_ptr<PLoggerPrivate> d;
};
