// What all windows of the toolkit share.
#pragma once

#include <QDialog>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <exception>
#include <optional>
#include <unordered_map>
#include <vector>

#include "editor/toolkit/event.h"

namespace brindle {

// Knows which control has the focus as the editor's logic understands it: the one that took it last. A menu, a message
// box or another program's window does not take it away, so an edit commits once, when the user really moves on.
//
// Knows also which windows are open: new ones belong to the top one, and modeless windows stay usable next to it.
class CDesk : public QObject {
public:
    // The widget takes the focus from others. `focus_lost`, which may be null, is reported when it loses it again.
    void Watch(QWidget& widget, const CEvent* focus_lost = nullptr);
    void Forget(const QWidget& widget);
    // Takes the focus from the widget that has it, and gives it to `widget`, which may be null.
    void MoveFocus(QWidget* widget);

    // Reports to the editor's logic. What it throws can't go through Qt: it ends the modal window on top, and goes on
    // from there.
    void Report(const CEvent& event);
    void ThrowFault();

    // A modal window comes to the top, and goes.
    void PushModal(QDialog& window);
    void PopModal(const QDialog& window);
    // Runs the event loop of a modal window that Qt or we have made, and gives its result. The window that was active
    // before is active again after it.
    int Exec(QDialog& window);
    // The modal window on top, null if none is open.
    QWidget* TopModal() const { return modal_.empty() ? nullptr : modal_.back().data(); }
    // The window that the user is asked about: the active modeless one, else the modal one on top.
    QWidget* Asker() const;

    void AddModeless(QWidget& window);
    void RemoveModeless(QWidget& window);

    // Where the user asked for a context menu, once.
    void SetMenuPlace(QPoint place) { menu_place_ = place; }
    QPoint TakeMenuPlace();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AttachModeless();
    void OnFocusIn(QWidget& widget, Qt::FocusReason reason);
    void OnPress(const QObject& watched);

    QPointer<QWidget> focused_;
    std::unordered_map<const QObject*, const CEvent*> focus_lost_;
    std::vector<QPointer<QDialog>> modal_;  // the top one last
    std::vector<QPointer<QWidget>> modeless_;
    std::optional<QPoint> menu_place_;
    std::exception_ptr fault_;
    int windows_run_ = 0;              // calls of Exec so far
    QPointer<QObject> press_delayed_;  // took the focus, which brought up a window, before it was pressed
};

}  // namespace brindle
