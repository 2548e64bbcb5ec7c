// The dialog that edits one template.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>

#include "editor/controls/kv_item_button.h"
#include "editor/templates/kv_item_multi.h"
#include "editor/toolkit/windows.h"

namespace brindle {

// Edits a template as plain text, which is not looked into. Its check boxes write at the click, so Cancel takes back
// the text alone.
class CEditTemplateDlg {
public:
    // `container` may be null: nothing can be stored then. `prefix` is that of the template's keys; `per_tool` shows
    // what a tool's template can clear.
    CEditTemplateDlg(CToolkit& toolkit, CKVItemContainer* container, std::string_view prefix, std::string_view name,
                     bool per_tool);
    // True if the user left with OK; the template is stored then, without the N words that it held.
    bool RunModal() { return window_->RunModal(); }

private:
    void AddFlags(const ControlPlace& place, bool per_tool);
    void AddInsertButtons(const ControlPlace& place);
    void ShowLines();
    void OnOk();

    CKVItemContainer* container_;
    std::string prefix_;
    std::unique_ptr<CDialogWindow> window_;
    std::unique_ptr<CKVItemMulti> text_;
    std::deque<CKVItemButton> flags_;
};

// The lines of a text whose lines are joined with CR LF. A line end at the very end begins no further line.
TemplateLines LinesOfText(std::string_view text);

}  // namespace brindle
