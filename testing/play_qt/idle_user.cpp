#include "testing/play_qt/idle_user.h"

#include <QTimer>
#include <utility>

namespace brindle::toolkit_test {

void CIdleUser::StepSoon() {
    QTimer::singleShot(0, &timers_, [this] { Step(); });
}

void CIdleUser::Step() {
    constexpr int kRoundsToSettle = 3;  // layouts, and what windows put off to their next round
    StepSoon();
    if (loops_.LastNumber() <= acted_at_ || ++rounds_ < kRoundsToSettle) return;
    rounds_ = 0;
    const int acted_before = std::exchange(acted_at_, loops_.Count());
    act_(*loops_.Last());
    acted_at_ = acted_before;
}

}  // namespace brindle::toolkit_test
