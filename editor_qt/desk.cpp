#include "desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QFocusEvent>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace brindle {

// ---- Focus ----

void CDesk::Watch(QWidget& widget, const CEvent* focus_lost) {
    widget.installEventFilter(this);
    if (focus_lost != nullptr) focus_lost_[&widget] = focus_lost;
}

void CDesk::Forget(const QWidget& widget) {
    focus_lost_.erase(&widget);
    if (focused_ == &widget) focused_.clear();
}

void CDesk::MoveFocus(QWidget* widget) {
    if (focused_ == widget) return;
    const QPointer<QWidget> before = focused_;
    focused_ = widget;
    const auto loser = focus_lost_.find(before.data());
    if (loser != focus_lost_.end()) Report(*loser->second);
}

bool CDesk::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        OnFocusIn(*static_cast<QWidget*>(watched), static_cast<QFocusEvent*>(event)->reason());
    }
    if (event->type() == QEvent::MouseButtonPress) OnPress(*watched);
    return false;
}

void CDesk::OnFocusIn(QWidget& widget, Qt::FocusReason reason) {
    const QPointer<QWidget> taker = &widget;
    const int run_before = windows_run_;
    MoveFocus(taker);
    if (windows_run_ != run_before && reason == Qt::MouseFocusReason) press_delayed_ = taker.data();
}

// The focus that a press moves may bring up a message box, and the release of the mouse goes there. The press reaches
// the button when the box is gone, and would leave it down.
void CDesk::OnPress(const QObject& watched) {
    auto* const button = qobject_cast<QAbstractButton*>(press_delayed_.data());
    press_delayed_.clear();
    if (button == nullptr || button != &watched) return;
    QTimer::singleShot(0, button, [button] {
        if (!button->isDown()) return;
        button->setDown(false);
        button->click();
    });
}

// ---- Reports ----

void CDesk::Report(const CEvent& event) {
    try {
        event.Report();
    } catch (...) {
        fault_ = std::current_exception();
        if (!modal_.empty() && modal_.back() != nullptr) modal_.back()->done(QDialog::Rejected);
    }
}

void CDesk::ThrowFault() {
    if (fault_ != nullptr) std::rethrow_exception(std::exchange(fault_, nullptr));
}

// ---- Windows ----

void CDesk::PushModal(QDialog& window) {
    modal_.emplace_back(&window);
    AttachModeless();
}

void CDesk::PopModal(const QDialog& window) {
    std::erase(modal_, &window);
    AttachModeless();
}

int CDesk::Exec(QDialog& window) {
    const QPointer<QWidget> before = QApplication::activeWindow();
    ++windows_run_;
    const int result = window.exec();
    if (before != nullptr) before->activateWindow();  // not every window manager does it
    return result;
}

QWidget* CDesk::Asker() const {
    QWidget* const active = QApplication::activeWindow();
    if (std::find(modeless_.begin(), modeless_.end(), active) != modeless_.end()) return active;
    return TopModal();
}

void CDesk::AddModeless(QWidget& window) {
    modeless_.emplace_back(&window);
    AttachModeless();
}

void CDesk::RemoveModeless(QWidget& window) { std::erase(modeless_, &window); }

// A modal window keeps back all windows but those that belong to it.
void CDesk::AttachModeless() {
    if (modal_.empty() || modal_.back() == nullptr) return;
    modal_.back()->winId();
    for (const QPointer<QWidget>& window : modeless_) {
        if (window == nullptr) continue;
        window->winId();
        window->windowHandle()->setTransientParent(modal_.back()->windowHandle());
    }
}

// ---- Menus ----

QPoint CDesk::TakeMenuPlace() {
    const QPoint place = menu_place_.value_or(QCursor::pos());
    menu_place_.reset();
    return place;
}

}  // namespace brindle
