// The dialog that lists all options of all tools.
#pragma once

#include "editor/toolkit/windows.h"
#include "tuning/kv_container.h"

namespace brindle {

// Opens sorted by tool; the user can have it sorted by option. Null shows an empty table.
void ViewToolOptions(CToolkit& toolkit, const CKVItemContainer* tuning);

}  // namespace brindle
