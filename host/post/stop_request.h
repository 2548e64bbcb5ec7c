// Ctrl-C and the like, for work that is to end well.
#pragma once

#include <csignal>

namespace brindle::host {

// While it lives, a signal that asks the program to stop (SIGINT, SIGTERM, SIGHUP, unless it is ignored) is noted only;
// the same one again has its usual effect at once. The one that was noted has it when the object goes. One at a time.
class CStopRequest {
public:
    CStopRequest();
    CStopRequest(const CStopRequest&) = delete;
    CStopRequest& operator=(const CStopRequest&) = delete;
    ~CStopRequest();

    bool IsMade() const;

private:
    static constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

    struct sigaction before_[3];
};

}  // namespace brindle::host
