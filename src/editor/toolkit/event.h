// What a control or window reports to the editor's logic.
#pragma once

#include <functional>
#include <utility>

namespace brindle {

// One occasion with one listener. The logic sets the listener, the toolkit reports; without a listener nothing happens.
class CEvent {
public:
    void Set(std::function<void()> listener) { listener_ = std::move(listener); }
    bool IsHeard() const { return static_cast<bool>(listener_); }
    // The listener may set another one, or end the window that reports.
    void Report() const {
        const std::function<void()> listener = listener_;
        if (listener) listener();
    }

private:
    std::function<void()> listener_;
};

}  // namespace brindle
