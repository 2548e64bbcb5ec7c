#include "control_cell.h"

#include <algorithm>
#include <string_view>

#include "qt_text.h"

namespace brindle {
namespace {

bool HasLabelBeside(ControlKind kind) {
    switch (kind) {
        case ControlKind::kCheck:
        case ControlKind::kRadio:
        case ControlKind::kButton:
        case ControlKind::kLabel:
        case ControlKind::kUnits: return false;
        default: return true;
    }
}

// Whether a label would but repeat the heading above it.
bool IsHeading(std::string_view label, std::string_view group) {
    return group.ends_with(label) && (group.size() == label.size() || group[group.size() - label.size() - 1] == '|');
}

QLabel* MakeLabel(const std::string& text, QWidget& control) {
    auto* const label = new QLabel(ToQt(text), control.parentWidget());
    label->setTextFormat(Qt::PlainText);
    return label;
}

bool TakesFocus(const QWidget& widget) {
    return widget.focusPolicy() & Qt::TabFocus && widget.isVisible() && widget.isEnabled();
}

// A control that goes out of use passes the focus on as Qt would, but to no edit: the user has not gone there, and an
// edit that is left stores what it shows.
void PassFocusOn(QWidget& widget) {
    if (widget.window()->focusWidget() != &widget) return;
    for (QWidget* next = widget.nextInFocusChain(); next != &widget; next = next->nextInFocusChain()) {
        const bool is_edit = next->testAttribute(Qt::WA_InputMethodEnabled);
        if (!is_edit && TakesFocus(*next)) return next->setFocus(Qt::OtherFocusReason);
    }
}

// As rich text a tip is wrapped.
QString TipText(const std::string& tip) {
    return tip.empty() ? QString() : QStringLiteral("<qt>%1</qt>").arg(ToQt(tip).toHtmlEscaped());
}

}  // namespace

// ---- Boxes ----

void CControlBox::Add(CControlCell& cell) {
    cells_.push_back(&cell);
    cell.AddBox(*this);
}

void CControlBox::Update() {
    constexpr int kTakesAllRoom = 100;
    const auto any = [this](const auto& is) { return std::any_of(cells_.begin(), cells_.end(), is); };
    box_.setEnabled(any([](const CControlCell* cell) { return cell->enabled(); }));
    box_.setVisible(any([](const CControlCell* cell) { return cell->shown(); }));
    QSizePolicy policy = box_.sizePolicy();
    policy.setVerticalStretch(
        any([](const CControlCell* cell) { return cell->shown() && cell->IsTall(); }) ? kTakesAllRoom : 0);
    box_.setSizePolicy(policy);
}

// ---- Cells ----

CControlCell::CControlCell(const ControlSpec& spec, QWidget& widget) : spec_(spec), widget_(widget) {
    widget.setObjectName(ToQt(spec.name.empty() ? spec.label : spec.name));
    widget.setProperty("kind", static_cast<int>(spec.kind));
    widget.setProperty("key", ToQt(spec.name));
    widget.setProperty("label", ToQt(spec.label));
    if (!spec.lead.empty()) SetLead(spec.lead);
    if (HasLabelBeside(spec.kind) && !spec.label.empty()) {
        widget.setAccessibleName(ToQt(spec.label).remove('&'));
        if (!IsHeading(spec.label, spec.group)) AddLabel();
    }
    const QString tip = TipText(spec.tip);
    for (QWidget* const part : {&widget, static_cast<QWidget*>(label_)}) {
        if (part == nullptr) continue;
        part->setToolTip(tip);
        part->setWhatsThis(tip);
    }
}

bool CControlCell::IsTall() const {
    switch (spec_.kind) {
        case ControlKind::kMulti:
        case ControlKind::kList:
        case ControlKind::kTable:
        case ControlKind::kDrawing: return true;
        default: return false;
    }
}

void CControlCell::AddLabel() {
    label_ = MakeLabel(spec_.label, widget_);
    label_->setBuddy(&widget_);
}

void CControlCell::SetShown(bool shown) {
    shown_ = shown;
    if (!shown) PassFocusOn(widget_);
    widget_.setVisible(shown);
    if (label_ != nullptr) label_->setVisible(shown);
    if (lead_ != nullptr) lead_->setVisible(shown);
    for (CControlBox* const box : boxes_) box->Update();
}

void CControlCell::SetEnabled(bool enabled) {
    enabled_ = enabled;
    if (!enabled) PassFocusOn(widget_);
    widget_.setEnabled(enabled);
    if (label_ != nullptr) label_->setEnabled(enabled);
    if (lead_ != nullptr) lead_->setEnabled(enabled);
    for (CControlBox* const box : boxes_) box->Update();
}

void CControlCell::SetLead(const std::string& text) {
    if (lead_ == nullptr) {
        lead_ = MakeLabel(text, widget_);
        lead_->setVisible(shown_);
        lead_->setEnabled(enabled_);
    }
    lead_->setText(ToQt(text));
}

}  // namespace brindle
