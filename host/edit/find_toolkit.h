// The windows of the commands that edit.
#pragma once

#include "editor/toolkit/active_toolkit.h"

namespace brindle::host {

// Null, with a message printed, if no window can open.
CToolkit* FindToolkit();

}  // namespace brindle::host
