// A control's place in a form: its widget and what is drawn with it.
#pragma once

#include <QLabel>
#include <QWidget>
#include <vector>

#include "editor/toolkit/controls.h"

namespace brindle {

class CControlCell;

// The box around controls that belong together, with a heading or without. It is shown and enabled while one of them
// is, and grows in height while it shows one that grows. The box is its window's.
class CControlBox {
public:
    explicit CControlBox(QWidget& box) : box_(box) {}
    CControlBox(const CControlBox&) = delete;
    CControlBox& operator=(const CControlBox&) = delete;

    void Add(CControlCell& cell);
    void Update();

private:
    QWidget& box_;
    std::vector<const CControlCell*> cells_;
};

// Made with the control; the layout puts it in its place later. The widgets are their window's.
class CControlCell {
public:
    CControlCell(const ControlSpec& spec, QWidget& widget);
    CControlCell(const CControlCell&) = delete;
    CControlCell& operator=(const CControlCell&) = delete;

    const ControlSpec& spec() const { return spec_; }
    QWidget& widget() const { return widget_; }
    QLabel* label() const { return label_; }  // null if it has none, or if it is on the widget itself
    QLabel* lead() const { return lead_; }    // null if it has none
    bool shown() const { return shown_; }
    bool enabled() const { return enabled_; }
    // Whether it grows with the window in height.
    bool IsTall() const;

    void SetShown(bool shown);
    void SetEnabled(bool enabled);
    // Draws `text` in front of the control.
    void SetLead(const std::string& text);
    void AddBox(CControlBox& box) { boxes_.push_back(&box); }

private:
    void AddLabel();

    ControlSpec spec_;
    QWidget& widget_;
    QLabel* label_ = nullptr;
    QLabel* lead_ = nullptr;
    bool shown_ = true;
    bool enabled_ = true;
    std::vector<CControlBox*> boxes_;
};

}  // namespace brindle
