#include "testing/play_qt/waiting_loops.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <algorithm>

namespace brindle::toolkit_test {

CWaitingLoops::CWaitingLoops() { qApp->installEventFilter(this); }

bool CWaitingLoops::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide) return false;
    auto* const window = qobject_cast<QWidget*>(watched);
    if (window == nullptr || !window->isWindow() || event->spontaneous()) return false;
    event->type() == QEvent::Show ? Opened(*window) : Closed(*window);
    return false;
}

void CWaitingLoops::MoveToTop(CWindow& window) {
    std::erase(windows_, &window);
    windows_.push_back(&window);
}

void CWaitingLoops::Opened(QWidget& window) {
    if (window.isModal() || qobject_cast<QMenu*>(&window) != nullptr) waiting_.push_back({&window, ++count_});
    if (auto* const ours = dynamic_cast<CWindow*>(&window)) {
        windows_.push_back(ours);
        on_open(*ours);
    }
}

void CWaitingLoops::Closed(QWidget& window) {
    std::erase_if(waiting_, [&window](const Waiting& waiting) { return waiting.window == &window; });
    if (auto* const ours = dynamic_cast<CWindow*>(&window)) {
        std::erase(windows_, ours);
        on_close(*ours);
    }
}

}  // namespace brindle::toolkit_test
