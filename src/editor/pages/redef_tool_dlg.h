// The dialog that chooses the tool whose data another tool takes.
#pragma once

#include <cstdint>
#include <optional>

#include "editor/toolkit/windows.h"

namespace brindle {

// The tool that the user chose from those from 1 to `tool_count`, nothing if he cancelled. `tool` is the one to
// redefine; a negative number is a new one.
std::optional<int32_t> ChooseSourceTool(CToolkit& toolkit, int32_t tool_count, int32_t tool);

}  // namespace brindle
