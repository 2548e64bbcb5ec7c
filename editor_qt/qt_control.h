// What the toolkit's controls have in common.
#pragma once

#include "form_body.h"
#include "qt_text.h"

namespace brindle {

// `Interface` is what the editor's logic sees, `Widget` what the user has on the screen.
template <typename Interface, typename Widget>
class CQtControl : public Interface {
public:
    void Enable(bool enabled) override { cell_.SetEnabled(enabled); }
    void Show(bool shown) override { cell_.SetShown(shown); }
    void TakeFocus() override {
        widget_.setFocus(Qt::OtherFocusReason);
        desk_.MoveFocus(&widget_);
    }

protected:
    // `widget` is a child of the body's root.
    CQtControl(CFormBody& body, const ControlSpec& spec, Widget* widget)
        : desk_(body.desk()), widget_(*widget), cell_(body.AddCell(spec, *widget)) {
        desk_.Watch(widget_);
    }
    ~CQtControl() override { desk_.Forget(widget_); }

    CDesk& desk() { return desk_; }
    Widget& widget() const { return widget_; }
    CControlCell& cell() { return cell_; }

private:
    CDesk& desk_;
    Widget& widget_;
    CControlCell& cell_;
};

}  // namespace brindle
