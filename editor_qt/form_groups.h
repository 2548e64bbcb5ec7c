// The controls of a form as the groups that their headings make.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "control_cell.h"

namespace brindle {

using FormRow = std::vector<CControlCell*>;

struct FormGroup;

// Either a row or a group.
struct FormPart {
    FormRow row;
    std::unique_ptr<FormGroup> group;
};

struct FormGroup {
    std::string heading;         // empty for rows under none
    bool starts_column = false;  // to the right of the group before
    std::vector<FormPart> parts;

    // Whether it holds a control that grows with the window in height.
    bool IsTall() const;
    // Whether one of those wants the whole width.
    bool IsWide() const;
};

// The outermost groups, in the order of their first controls.
std::vector<std::unique_ptr<FormGroup>> GroupsOf(const std::vector<CControlCell*>& cells);

}  // namespace brindle
