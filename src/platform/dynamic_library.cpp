#include "platform/dynamic_library.h"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>

namespace brindle {
namespace {

// The program has no name in the list of what is loaded, and the one that it was called by is not where it lies.
std::string FileOfThisCode() {
    Dl_info info{};
    void* found = nullptr;
    const auto* const here = reinterpret_cast<const void*>(&FolderOfThisCode);
    if (dladdr1(here, &info, &found, RTLD_DL_LINKMAP) == 0 || found == nullptr) return {};
    const char* const name = static_cast<const link_map*>(found)->l_name;
    return name != nullptr && *name != '\0' ? name : "/proc/self/exe";
}

}  // namespace

std::string FolderOfThisCode() {
    std::error_code error;
    const std::filesystem::path file = std::filesystem::canonical(FileOfThisCode(), error);
    return error ? std::string() : file.parent_path().string();
}

std::string LibraryFileName(const std::string& name) { return "lib" + name + ".so"; }

void* LoadSymbol(const std::string& path, const char* symbol) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    return library == nullptr ? nullptr : dlsym(library, symbol);
}

}  // namespace brindle
