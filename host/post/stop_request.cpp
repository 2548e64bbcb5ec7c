#include "host/post/stop_request.h"

#include <atomic>
#include <iterator>

namespace brindle::host {
namespace {

std::atomic<int> noted_signal = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal may come at any time");

void Note(int signal) { noted_signal = signal; }

}  // namespace

CStopRequest::CStopRequest() {
    static_assert(std::size(kSignals) == sizeof before_ / sizeof before_[0]);
    noted_signal = 0;
    struct sigaction note = {};
    note.sa_handler = Note;
    note.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (size_t i = 0; i < std::size(kSignals); ++i) {
        ::sigaction(kSignals[i], &note, &before_[i]);
        if (before_[i].sa_handler == SIG_IGN) ::sigaction(kSignals[i], &before_[i], nullptr);
    }
}

CStopRequest::~CStopRequest() {
    for (size_t i = 0; i < std::size(kSignals); ++i) ::sigaction(kSignals[i], &before_[i], nullptr);
    if (IsMade()) ::raise(noted_signal);
}

bool CStopRequest::IsMade() const { return noted_signal != 0; }

}  // namespace brindle::host
