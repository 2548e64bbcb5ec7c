// The list of tools beside the controls of per-tool keys.
#pragma once

#include <functional>
#include <string>

#include "editor/control_place.h"
#include "tuning/kv_container.h"

namespace brindle {

// Holds the tools of a tuning that are in use. A page binds its per-tool controls to GetToolPrefix and the key, again
// after each change of selection: by then an edit that had the focus has written its value under the key of the old
// tool.
class CPerToolListBox {
public:
    explicit CPerToolListBox(const ControlPlace& place) : control_(place.form.AddList(PlainSpec(ControlKind::kList))) {}

    // From the next Fill on.
    void LeaveOutSubordinates() { with_subordinates_ = false; }
    // Selects the first tool. Without a tuning the list is empty.
    void Fill(const CKVItemContainer* tuning);
    // Empty if no tool is selected.
    std::string GetToolPrefix() const;
    CListControl& control() { return control_; }

private:
    void AddTools(const CKVItemContainer& tuning);
    void Add(std::string_view text, int32_t tool);

    CListControl& control_;
    bool with_subordinates_ = true;
};

}  // namespace brindle
