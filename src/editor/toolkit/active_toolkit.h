// The toolkit in which dialogs open: one for the process, because a process has one display and one user.
#pragma once

#include "editor/toolkit/windows.h"

namespace brindle {

// The one that was set; before any was, the one of the library's plugin, which is loaded then. Null if there is none,
// or if no window can be opened now; every dialog then ends as cancelled.
CToolkit* ActiveToolkit();

// Puts `toolkit` in its place, null for none. It must stay alive as long as it is active.
void SetActiveToolkit(CToolkit* toolkit);

}  // namespace brindle
