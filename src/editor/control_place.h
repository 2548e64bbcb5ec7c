// Where the editor's controls stand, and how they are described to the toolkit.
#pragma once

#include <string_view>

#include "editor/toolkit/windows.h"

namespace brindle {

class CNCParamsPage;

// The form in which a control is made. All of it outlives the control.
struct ControlPlace {
    CToolkit& toolkit;
    CForm& form;
    CNCParamsPage* page = nullptr;  // null in a plain dialog
};

// A control bound to `key`, which stands without tool prefix; its tool tip is the key's meaning.
ControlSpec KeySpec(ControlKind kind, std::string_view key, std::string_view label, std::string_view group = {});

// A control that stands for no key.
ControlSpec PlainSpec(ControlKind kind, std::string_view label = {}, Spot spot = Spot::kNewRow);

// A key without the prefix of its tool.
std::string_view WithoutToolPrefix(std::string_view key);

}  // namespace brindle
