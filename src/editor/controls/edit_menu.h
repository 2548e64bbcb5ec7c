// The context menu of an edit.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "editor/toolkit/windows.h"

namespace brindle {

struct EditCommand {
    std::string_view text;
    bool enabled;
    std::function<void()> run;
};

// Opens a menu of `commands` and, after them, what every edit can do, and runs what the user chooses.
void RunEditMenu(CToolkit& toolkit, CEditControl& edit, std::vector<EditCommand> commands);

}  // namespace brindle
