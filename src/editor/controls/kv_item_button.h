// Check boxes and radio buttons bound to Boolean keys.
#pragma once

#include <vector>

#include "editor/controls/bound_control.h"

namespace brindle {

// A click writes the keys of all siblings, then the button's own. The members of a radio group have all the others as
// siblings, so that exactly one of their keys stays true.
class CKVItemButton : public CBoundControl {
public:
    CKVItemButton(const ControlPlace& place, const ControlSpec& spec);

    void Bind(CKVItemContainer* container, std::string_view key, bool by_default);
    // `sibling` must live as long as this button. One that is a sibling already keeps its place.
    void AddSibling(CKVItemButton& sibling);
    CButtonControl& control() { return control_; }
    const CButtonControl& control() const { return control_; }

private:
    void Commit();
    void OnClick();

    CButtonControl& control_;
    std::vector<CKVItemButton*> siblings_;
};

}  // namespace brindle
