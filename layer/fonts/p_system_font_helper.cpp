#include "layer/fonts/p_system_font_helper.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>

#include <boost/algorithm/string/trim.hpp>

#include "layer/foundation/utf8.h"

#ifdef __ANDROID__
#include <dirent.h>
#else
#include <fontconfig/fontconfig.h>
#endif

namespace {

const char kTtfSuffix[] = ".ttf";

struct PSystemFontHelperPrivate {
    std::mutex mutex;
    std::vector<PFontInfo> fonts;
    std::map<std::wstring, PFontInfo> byName;
};

PSystemFontHelperPrivate& helper() {
    static PSystemFontHelperPrivate instance;
    return instance;
}

#ifdef __ANDROID__

std::list<PFontInfo> listFonts() {
    static const char kDirectory[] = "/system/fonts/";
    std::list<PFontInfo> fonts;
    DIR* directory = opendir(kDirectory);
    if (!directory) {
        return fonts;
    }
    std::vector<std::string> entries;
    while (const dirent* entry = readdir(directory)) {
        entries.emplace_back(entry->d_name);
    }
    closedir(directory);
    // In the order a listing of the directory shows.
    std::sort(entries.begin(), entries.end());
    for (const std::string& entry : entries) {
        PFontInfo font;
        if (PSystemFontHelper::fontOfFile(kDirectory, entry, font)) {
            fonts.push_back(font);
        }
    }
    return fonts;
}

#else

bool endsWithTtf(const std::string& path) {
    const std::size_t length = sizeof(kTtfSuffix) - 1;
    return path.size() > length && path.compare(path.size() - length, length, kTtfSuffix) == 0;
}

template <class T, void (*destroy)(T*)>
struct FcDeleter {
    void operator()(T* object) const { destroy(object); }
};
template <class T, void (*destroy)(T*)>
using FcHandle = std::unique_ptr<T, FcDeleter<T, destroy> >;

std::list<PFontInfo> listFonts() {
    // A configuration of our own, ended after use: fontconfig's shared one keeps memory that
    // it has lost track of for the rest of the process.
    const FcHandle<FcConfig, FcConfigDestroy> config(FcInitLoadConfigAndFonts());
    const FcHandle<FcPattern, FcPatternDestroy> pattern(FcPatternCreate());
    const FcHandle<FcObjectSet, FcObjectSetDestroy> objects(FcObjectSetBuild(FC_FILE, nullptr));
    if (!config || !pattern || !objects) {
        return {};
    }
    const FcHandle<FcFontSet, FcFontSetDestroy> set(
        FcFontList(config.get(), pattern.get(), objects.get()));
    std::vector<std::string> paths;
    for (int i = 0; set && i < set->nfont; ++i) {
        FcChar8* file = nullptr;
        if (FcPatternGetString(set->fonts[i], FC_FILE, 0, &file) == FcResultMatch && file) {
            std::string path(reinterpret_cast<const char*>(file));
            if (endsWithTtf(path)) {
                paths.push_back(std::move(path));
            }
        }
    }
    // fontconfig's order changes with its cache; a sorted list is the same on every run.
    std::sort(paths.begin(), paths.end());
    std::list<PFontInfo> fonts;
    for (const std::string& path : paths) {
        const std::size_t slash = path.rfind('/');
        const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
        PFontInfo font;
        if (PSystemFontHelper::fontOfFile(path.substr(0, nameStart), path.substr(nameStart),
                                          font)) {
            fonts.push_back(font);
        }
    }
    return fonts;
}

#endif

}  // namespace

bool PSystemFontHelper::loadFontsInfo() {
    PSystemFontHelperPrivate& state = helper();
    std::lock_guard<std::mutex> lock(state.mutex);
    if (state.fonts.empty()) {
        const std::list<PFontInfo> fonts = getSystemFontsInfo();
        state.fonts.assign(fonts.begin(), fonts.end());
        for (const PFontInfo& font : state.fonts) {
            state.byName[font.name] = font;
        }
    }
    return !state.fonts.empty();
}

bool PSystemFontHelper::fontOfFile(const std::string& directory, const std::string& fileName,
                                   PFontInfo& font) {
    const std::string entry = boost::algorithm::trim_copy(fileName);
    const std::size_t suffix = entry.rfind(kTtfSuffix);
    if (suffix == std::string::npos) {
        return false;
    }
    const std::string name = boost::algorithm::trim_copy(entry.substr(0, suffix));
    if (name.empty()) {
        return false;
    }
    font = PFontInfo(str2wstr(name), str2wstr(directory + entry));
    return true;
}

std::list<PFontInfo> PSystemFontHelper::getSystemFontsInfo() {
    return listFonts();
}

unsigned int PSystemFontHelper::getFontsCount() {
    loadFontsInfo();
    std::lock_guard<std::mutex> lock(helper().mutex);
    return static_cast<unsigned int>(helper().fonts.size());
}

std::vector<PFontInfo> PSystemFontHelper::getFontsInfo() {
    loadFontsInfo();
    std::lock_guard<std::mutex> lock(helper().mutex);
    return helper().fonts;
}

PFontInfo PSystemFontHelper::getFontInfo(unsigned int index) {
    std::lock_guard<std::mutex> lock(helper().mutex);
    const auto& fonts = helper().fonts;
    return index < fonts.size() ? fonts[index] : PFontInfo();
}

PFontInfo PSystemFontHelper::getFontInfo(const std::wstring& name) {
    std::lock_guard<std::mutex> lock(helper().mutex);
    const auto& byName = helper().byName;
    const auto found = byName.find(name);
    return found == byName.end() ? PFontInfo() : found->second;
}
