#include "tools/cli/library_choice.h"

#include <cstdlib>
#include <filesystem>

#include "tools/host/extension_library.h"

namespace VelkoCli {

LibraryChoice chooseLibrary() {
    namespace fs = std::filesystem;
    const char* variable = std::getenv("VELKO_EXTENSION");
    if (variable && *variable) {
        return {variable, "VELKO_EXTENSION"};
    }
    std::error_code error;
    const fs::path tool = fs::read_symlink("/proc/self/exe", error);
    if (!error) {
        const fs::path installed =
            (tool.parent_path() / VELKO_EXTENSION_FROM_TOOL).lexically_normal();
        if (fs::is_regular_file(installed, error)) {
            return {installed.string(), "installed beside the tool"};
        }
    }
    return {VelkoHost::ExtensionLibrary::defaultPath(), "the build tree"};
}

}  // namespace VelkoCli
