// One-line edits bound to texts.
#pragma once

#include "editor/controls/bound_control.h"

namespace brindle {

// Commits every change of the text at once, as plain text; the page's rule set does not run then.
class CKVTextEdit : public CBoundControl {
public:
    CKVTextEdit(const ControlPlace& place, const ControlSpec& spec);

    void Bind(CKVItemContainer* container, std::string_view key, std::string_view by_default);
    // Lets the user choose a run-time value and puts its reference, such as `RTD(2,3)`, in place of the whole text.
    // Does nothing unless the edit is bound to a tuning.
    void ReferenceRunTimeData();
    CEditControl& control() { return control_; }

private:
    void Commit();
    void OpenMenu();

    CEditControl& control_;
};

}  // namespace brindle
