// Where a bound control is made, and how it is described to the toolkit.
#pragma once

#include <string_view>

#include "editor/toolkit/windows.h"

namespace brindle {

class CControlOwner;

// The form in which a control is made. All of it outlives the control.
struct ControlPlace {
    CToolkit& toolkit;
    CForm& form;
    CControlOwner* owner = nullptr;  // null in a plain dialog
};

// A control bound to `key`, which has no tool prefix here; its tool tip is the key's meaning.
ControlSpec KeySpec(ControlKind kind, std::string_view key, std::string_view label, std::string_view group = {});

// A key without the prefix of its tool.
std::string_view WithoutToolPrefix(std::string_view key);

}  // namespace brindle
