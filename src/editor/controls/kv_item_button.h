// Check boxes and radio buttons bound to Boolean keys.
#pragma once

#include <span>

#include "editor/controls/bound_control.h"
#include "tuning/key_catalogue.h"

namespace brindle {

// A click of a radio button makes all other keys of its choice false, so that exactly one of them stays true.
class CKVItemButton : public CBoundControl {
public:
    CKVItemButton(const ControlPlace& place, const ControlSpec& spec);

    void Bind(CKVItemContainer* container, std::string_view key, bool by_default);
    // For a radio button: the keys of which its own is one, as in tuning/key_choices.h. None is bound per tool.
    void SetChoice(std::span<const KeyRef> choice) { choice_ = choice; }
    CButtonControl& control() { return control_; }
    const CButtonControl& control() const { return control_; }

private:
    void Commit();
    void OnClick();

    CButtonControl& control_;
    std::span<const KeyRef> choice_;
};

}  // namespace brindle
