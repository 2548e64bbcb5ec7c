// When a user acts: whenever a window waits for him and nothing else is left to do.
#pragma once

#include "testing/play_qt/waiting_loops.h"

namespace brindle::toolkit_test {

// Needs a QApplication.
class CIdleUser {
public:
    // `act` does one thing to the window or menu that waits. It may open a window whose event loop runs within the
    // act: the next acts are done there, and the act goes on when that window is closed.
    explicit CIdleUser(std::function<void(QWidget& waiting)> act) : act_(std::move(act)) { StepSoon(); }
    CIdleUser(const CIdleUser&) = delete;
    CIdleUser& operator=(const CIdleUser&) = delete;

    CWaitingLoops& loops() { return loops_; }
    const CWaitingLoops& loops() const { return loops_; }

private:
    void StepSoon();
    void Step();

    std::function<void(QWidget& waiting)> act_;
    CWaitingLoops loops_;
    QObject timers_;    // ends the timers with the user
    int rounds_ = 0;    // of the event loop since the last act
    int acted_at_ = 0;  // how many windows had been opened when the innermost act began
};

}  // namespace brindle::toolkit_test
