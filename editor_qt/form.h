// What pages, dialogs and modeless windows have in common: they make controls.
#pragma once

#include "button_controls.h"
#include "drawing_control.h"
#include "edit_controls.h"
#include "editor/toolkit/windows.h"
#include "form_body.h"
#include "list_controls.h"
#include "table_control.h"

namespace brindle {

// `Interface` is the form that the editor's logic sees.
template <typename Interface>
class CQtForm : public Interface {
public:
    CControl& AddLabel(const ControlSpec& spec) override { return body_.Add<CQtLabel>(spec); }
    CButtonControl& AddButton(const ControlSpec& spec) override { return body_.Add<CQtButton>(spec); }
    CEditControl& AddEdit(const ControlSpec& spec) override { return body_.Add<CQtEdit>(spec); }
    CMultiEditControl& AddMultiEdit(const ControlSpec& spec) override { return body_.Add<CQtMultiEdit>(spec); }
    CListControl& AddList(const ControlSpec& spec) override {
        if (spec.kind == ControlKind::kList) return body_.Add<CQtListBox>(spec);
        return body_.Add<CQtDropDown>(spec);
    }
    CTableControl& AddTable(const ControlSpec& spec) override { return body_.Add<CQtTable>(spec); }
    CDrawingControl& AddDrawing(const ControlSpec& spec) override { return body_.Add<CQtDrawing>(spec); }

protected:
    CQtForm(CDesk& desk, QWidget& root, FormFlow flow) : body_(desk, root, flow) {}
    CFormBody& body() { return body_; }
    CDesk& desk() { return body_.desk(); }

private:
    CFormBody body_;
};

}  // namespace brindle
