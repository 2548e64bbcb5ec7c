// The entry of the plugin.
#include "editor/toolkit/toolkit_plugin.h"

#include "display.h"
#include "qt_toolkit.h"

extern "C" __attribute__((visibility("default"))) brindle::CToolkit* BrindleEditorToolkit(int interface_version) {
    if (interface_version != brindle::kToolkitVersion || !brindle::HasApplication()) return nullptr;
    static brindle::CQtToolkit toolkit;
    return &toolkit;
}
