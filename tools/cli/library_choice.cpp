#include "tools/cli/library_choice.h"

#include <cstdlib>
#include <filesystem>

#include "tools/host/extension_library.h"

namespace VelkoCli {

namespace {

// The file at fromTool, a path from the tool's own folder, when it is there; else empty.
std::string installedBesideTool(const char* fromTool) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path tool = fs::read_symlink("/proc/self/exe", error);
    if (error) {
        return {};
    }
    const fs::path installed = (tool.parent_path() / fromTool).lexically_normal();
    return fs::is_regular_file(installed, error) ? installed.string() : std::string();
}

}  // namespace

LibraryChoice chooseLibrary() {
    const char* variable = std::getenv("VELKO_EXTENSION");
    if (variable && *variable) {
        return {variable, "VELKO_EXTENSION"};
    }
    const std::string installed = installedBesideTool(VELKO_EXTENSION_FROM_TOOL);
    if (!installed.empty()) {
        return {installed, "installed beside the tool"};
    }
    return {VelkoHost::ExtensionLibrary::defaultPath(), "the build tree"};
}

std::string readerModulePath() {
    const std::string installed = installedBesideTool(VELKO_READER_FROM_TOOL);
    return installed.empty() ? VELKO_READER_PATH : installed;
}

}  // namespace VelkoCli
