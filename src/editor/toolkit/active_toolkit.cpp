#include "editor/toolkit/active_toolkit.h"

#include <optional>
#include <string>

#include "editor/toolkit/toolkit_plugin.h"
#include "platform/dynamic_library.h"

namespace brindle {
namespace {

std::optional<CToolkit*>& Chosen() {
    static std::optional<CToolkit*> toolkit;
    return toolkit;
}

// The plugin is in a folder of its own below that of the library, or beside the library. The command holds the same
// code and lies in a folder `bin` next to the library's. Null if there is no such plugin: one that can't be loaded once
// is not tried again.
ToolkitEntry FindPlugin() {
    const std::string here = FolderOfThisCode();
    for (const std::string& folder :
         {here, here + "/../lib", here + "/../" BRINDLE_LIB_FOLDER, std::string(BRINDLE_INSTALL_FOLDER)}) {
        if (!folder.starts_with('/')) continue;
        for (const char* const place : {"/brindle/", "/"}) {
            void* const entry = LoadSymbol(folder + place + LibraryFileName(kToolkitPlugin), kToolkitEntry);
            if (entry != nullptr) return reinterpret_cast<ToolkitEntry>(entry);
        }
    }
    return nullptr;
}

}  // namespace

CToolkit* ActiveToolkit() {
    if (Chosen()) return *Chosen();
    static const ToolkitEntry plugin = FindPlugin();
    return plugin == nullptr ? nullptr : plugin(kToolkitVersion);
}

void SetActiveToolkit(CToolkit* toolkit) { Chosen() = toolkit; }

}  // namespace brindle
