// What the library and the plugin with the editor's windows agree on.
#pragma once

#include "editor/toolkit/windows.h"

namespace brindle {

// Changes with the interface in toolkit/windows.h and toolkit/controls.h.
inline constexpr int kToolkitVersion = 1;

inline constexpr const char* kToolkitPlugin = "BrindleEditor";
inline constexpr const char* kToolkitEntry = "BrindleEditorToolkit";

// Null if the plugin is of another version, or if no window can be opened now. The toolkit lives until the process
// ends.
using ToolkitEntry = CToolkit* (*)(int interface_version);

}  // namespace brindle
