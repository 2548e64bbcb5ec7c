// Labels and buttons.
#pragma once

#include <QAbstractButton>
#include <QLabel>

#include "qt_control.h"

namespace brindle {

// A label shows its own text; once it is given another, the label of its description goes in front of that.
class CQtLabel : public CQtControl<CControl, QLabel> {
public:
    CQtLabel(CFormBody& body, const ControlSpec& spec);
    void SetText(std::string_view text) override;
    std::string GetText() const override { return FromQt(widget().text()); }
};

// Check box, radio button or push button.
class CQtButton : public CQtControl<CButtonControl, QAbstractButton> {
public:
    CQtButton(CFormBody& body, const ControlSpec& spec);
    void SetText(std::string_view text) override { widget().setText(ToQt(text)); }
    std::string GetText() const override { return FromQt(widget().text()); }
    void SetCheck(bool checked) override { widget().setChecked(checked); }
    bool GetCheck() const override { return widget().isChecked(); }

private:
    void OnClick();
};

}  // namespace brindle
