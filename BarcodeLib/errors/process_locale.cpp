#include "BarcodeLib/errors/process_locale.h"

#include <clocale>
#include <mutex>

namespace {

std::mutex& localeMutex() {
    static std::mutex mutex;
    return mutex;
}

std::string currentName() {
    const char* name = std::setlocale(LC_ALL, nullptr);
    return name ? std::string(name) : std::string();
}

}  // namespace

std::string process_locale_name() {
    const std::lock_guard<std::mutex> lock(localeMutex());
    return currentName();
}

bool set_process_locale(const std::string& name) {
    const std::lock_guard<std::mutex> lock(localeMutex());
    return std::setlocale(LC_ALL, name.c_str()) != nullptr;
}

std::string exchange_process_locale(const std::string& name) {
    const std::lock_guard<std::mutex> lock(localeMutex());
    std::string previous = currentName();
    std::setlocale(LC_ALL, name.c_str());
    return previous;
}
