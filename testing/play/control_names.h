// How tests call controls: by what the user reads on the screen.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "editor/toolkit/controls.h"

namespace brindle {

// The word by which transcripts call a kind of control.
std::string_view ClassWord(ControlKind kind);

struct NamedControl {
    ControlKind kind;
    std::string key;    // empty if it is bound to none
    std::string label;  // as it is now

    // The key, else the label, else the class word.
    std::string Name() const;
};

// The place of the control that `name` calls: by its name, else by its label, with or without the `&`, else by its
// class word; `NAME#2` is the second of that name. Nothing if there is none.
std::optional<size_t> FindControl(std::span<const NamedControl> controls, std::string_view name);

}  // namespace brindle
