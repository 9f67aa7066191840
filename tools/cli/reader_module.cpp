#include "tools/cli/reader_module.h"

#include <dlfcn.h>

#include "tools/cli/library_choice.h"

namespace VelkoCli {

namespace {

constexpr char kEntryPoint[] = "velko_read_picture";

struct Reading {
    std::string& symbology;
    std::string& text;
};

void take(void* context, const char* symbology, const char* text, size_t size) {
    Reading& reading = *static_cast<Reading*>(context);
    reading.symbology = symbology;
    reading.text.assign(text, size);
}

}  // namespace

const ReaderModule& ReaderModule::instance() {
    static const ReaderModule module(readerModulePath());
    return module;
}

ReaderModule::ReaderModule(const std::string& path) {
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* reason = dlerror();
        loadError = reason ? reason : "dlopen failed";
        return;
    }
    readPicture = reinterpret_cast<decltype(readPicture)>(dlsym(handle, kEntryPoint));
    if (!readPicture) {
        loadError = path + ": missing entry point " + kEntryPoint;
    }
}

bool ReaderModule::read(const std::vector<unsigned char>& png, const char* format,
                        unsigned quietModules, bool addOn, std::string& symbology,
                        std::string& text) const {
    Reading reading{symbology, text};
    return readPicture && readPicture(png.data(), png.size(), format, quietModules, addOn ? 1 : 0,
                                      &take, &reading) != 0;
}

}  // namespace VelkoCli
