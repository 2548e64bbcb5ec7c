// The frame of every window of the toolkit.
#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QVBoxLayout>
#include <functional>
#include <string_view>

#include "desk.h"

namespace brindle {

// OK, Cancel, Escape and the frame report and do nothing by themselves.
class CWindow : public QDialog {
public:
    // Belongs to the window that is on top at the desk, if `parent` is null.
    CWindow(CDesk& desk, std::string_view caption, QWidget* parent = nullptr);

    std::function<void()> on_ok;
    std::function<void()> on_cancel;

    // Above the buttons.
    QVBoxLayout& body() { return body_; }
    // OK and Cancel, or Close, and more; in the order of the platform. The buttons come last in the order of tabs.
    QDialogButtonBox& AddButtons(QDialogButtonBox::StandardButtons buttons);
    // As wide and high as the contents like, if the screen lets it; never smaller than it is.
    void Grow();
    // Shows the window and returns when it has ended: whether with OK. Keeps back all other windows, those of the host
    // too, except what belongs to it.
    bool RunModal();
    void End(bool with_ok) { QDialog::done(with_ok ? Accepted : Rejected); }

    void accept() override { on_ok(); }
    void reject() override { on_cancel(); }

private:
    void StandAboveHost();

    CDesk& desk_;
    QVBoxLayout& body_;
};

// Owns a window whose contents are made by the class that derives from this too.
class CWindowHolder {
protected:
    explicit CWindowHolder(CWindow* window);
    CWindowHolder(const CWindowHolder&) = delete;
    CWindowHolder& operator=(const CWindowHolder&) = delete;
    ~CWindowHolder() { delete window_.data(); }

    CWindow& window() const { return *window_; }
    QWidget& content() const { return content_; }

private:
    QPointer<CWindow> window_;  // null once the window that it belongs to has taken it along
    QWidget& content_;
};

}  // namespace brindle
