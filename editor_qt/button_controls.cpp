#include "button_controls.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

namespace brindle {
namespace {

// Marks one button of its group. Qt's own exclusive groups would not let the editor's logic set each button by itself.
class CRadio : public QRadioButton {
public:
    CRadio(const CFormBody& body, std::string group, QWidget* parent)
        : QRadioButton(parent), body_(body), group_(std::move(group)) {
        setAutoExclusive(false);
    }

protected:
    void nextCheckState() override {
        for (CRadio* const radio : Group()) radio->setChecked(radio == this);
    }
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
            case Qt::Key_Up:
            case Qt::Key_Left: return Step(Group(), false);
            case Qt::Key_Down:
            case Qt::Key_Right: return Step(Group(), true);
            default: QRadioButton::keyPressEvent(event);
        }
    }

private:
    std::vector<CRadio*> Group() const {
        std::vector<CRadio*> group;
        for (const CControlCell& cell : body_.cells()) {
            auto* const radio = dynamic_cast<CRadio*>(&cell.widget());
            if (radio != nullptr && radio->group_ == group_) group.push_back(radio);
        }
        return group;
    }

    // Clicks the next button that can be clicked.
    void Step(std::vector<CRadio*> group, bool forward) {
        if (!forward) std::reverse(group.begin(), group.end());
        std::rotate(group.begin(), std::find(group.begin(), group.end(), this), group.end());
        const auto next = std::find_if(group.begin() + 1, group.end(),
                                       [](const CRadio* radio) { return radio->isVisible() && radio->isEnabled(); });
        if (next == group.end()) return;
        (*next)->setFocus(Qt::TabFocusReason);
        (*next)->click();
    }

    const CFormBody& body_;
    std::string group_;
};

// Takes no room while it is empty.
class CLabel : public QLabel {
public:
    using QLabel::QLabel;
    QSize sizeHint() const override { return text().isEmpty() ? QSize(0, 0) : QLabel::sizeHint(); }
    QSize minimumSizeHint() const override { return text().isEmpty() ? QSize(0, 0) : QLabel::minimumSizeHint(); }
};

// Small with a text such as `...`.
class CPushButton : public QPushButton {
public:
    using QPushButton::QPushButton;
    QSize sizeHint() const override {
        const QSize size = QPushButton::sizeHint();
        return text().size() > 3 ? size : QSize(size.height() * 3 / 2, size.height());
    }
};

QAbstractButton* MakeButton(CFormBody& body, const ControlSpec& spec) {
    switch (spec.kind) {
        case ControlKind::kCheck: return new QCheckBox(&body.root());
        case ControlKind::kRadio: return new CRadio(body, spec.group, &body.root());
        default: return new CPushButton(&body.root());
    }
}

}  // namespace

// ---- Labels ----

CQtLabel::CQtLabel(CFormBody& body, const ControlSpec& spec) : CQtControl(body, spec, new CLabel(&body.root())) {
    widget().setTextFormat(Qt::PlainText);
    widget().setText(ToQt(spec.label));
}

void CQtLabel::SetText(std::string_view text) {
    widget().setText(ToQt(text));
    const std::string& label = cell().spec().label;
    if (!label.empty() && text != label) cell().SetLead(label);
}

// ---- Buttons ----

CQtButton::CQtButton(CFormBody& body, const ControlSpec& spec) : CQtControl(body, spec, MakeButton(body, spec)) {
    widget().setText(ToQt(spec.label));
    QObject::connect(&widget(), &QAbstractButton::clicked, &widget(), [this] { OnClick(); });
}

void CQtButton::OnClick() {
    desk().MoveFocus(&widget());
    desk().Report(clicked);
}

}  // namespace brindle
