#include "layer/foundation/time_strings.h"

#include <cstdlib>
#include <ctime>
#include <sstream>
#include <thread>

namespace {

constexpr std::size_t kTimeBufferSize = 256;

std::size_t formatLocalTime(const char* format, char* buffer) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (!localtime_r(&now, &local)) {
        return 0;
    }
    return std::strftime(buffer, kTimeBufferSize, format, &local);
}

}  // namespace

std::string getCurrentTimeString(const std::string& format) {
    char buffer[kTimeBufferSize] = {};
    if (formatLocalTime(format.c_str(), buffer) == 0) {
        return std::string();
    }
    return std::string(buffer, kTimeBufferSize);
}

std::string getLogFileName() {
    char buffer[kTimeBufferSize] = {};
    std::ostringstream name;
    name << "VelkoBarcodeLib_x" << sizeof(void*) * 8 << "_t" << std::this_thread::get_id() << "_";
    if (formatLocalTime("%Y%m%d%H%M%S", buffer) == 0) {
        name << lrand48();
    } else {
        name << buffer;
    }
    name << ".txt";
    return name.str();
}
