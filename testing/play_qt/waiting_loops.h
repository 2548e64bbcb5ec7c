// Which windows are open, and which of them wait for the user.
#pragma once

#include <QDialog>
#include <QObject>
#include <functional>
#include <vector>

#include "window.h"

namespace brindle::toolkit_test {

// Sees all windows of the process come and go.
class CWaitingLoops : public QObject {
public:
    CWaitingLoops();

    // Of the editor's own windows.
    std::function<void(const CWindow& window)> on_open = [](const CWindow&) {};
    std::function<void(const CWindow& window)> on_close = [](const CWindow&) {};

    // The modal window or menu that was opened last; null if none is open.
    QWidget* Last() const { return waiting_.empty() ? nullptr : waiting_.back().window; }
    // How many have been opened ever, and how many had been when the last of those that are open came.
    int Count() const { return count_; }
    int LastNumber() const { return waiting_.empty() ? 0 : waiting_.back().number; }
    // The editor's windows, the one on top last; the modal ones in order of opening.
    const std::vector<CWindow*>& windows() const { return windows_; }
    void MoveToTop(CWindow& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Waiting {
        QWidget* window;
        int number;
    };

    void Opened(QWidget& window);
    void Closed(QWidget& window);

    std::vector<Waiting> waiting_;
    std::vector<CWindow*> windows_;
    int count_ = 0;
};

}  // namespace brindle::toolkit_test
