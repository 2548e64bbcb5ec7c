// The chooser of directives.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editor/toolkit/windows.h"

namespace brindle {

// The directive that the user chose, nothing if he cancelled. `directive`, for example `@Radius`, is selected at first,
// the first of all if it is none.
std::optional<std::string> ChooseDirective(CToolkit& toolkit, std::string_view directive);

}  // namespace brindle
