#include "platform/worker_pool.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace brindle {
namespace {

bool IsIgnored(int signal) {
    struct sigaction action = {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

std::string TakeText(int descriptor) {
    std::string text;
    char part[4096];
    ::lseek(descriptor, 0, SEEK_SET);
    for (ssize_t size = 0; (size = ::read(descriptor, part, sizeof part)) > 0;) {
        text.append(part, static_cast<size_t>(size));
    }
    ::close(descriptor);
    return text;
}

}  // namespace

CWorkerPool::CWorkerPool() {
    sigemptyset(&stop_signals_);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!IsIgnored(signal)) sigaddset(&stop_signals_, signal);
    }
    awaited_signals_ = stop_signals_;
    sigaddset(&awaited_signals_, SIGCHLD);
    ::sigprocmask(SIG_BLOCK, &awaited_signals_, &usual_mask_);
    // Where the parent of this program ignores the ends of children, so would we, and their status were lost.
    struct sigaction tell_of_children = {};
    tell_of_children.sa_handler = SIG_DFL;
    ::sigaction(SIGCHLD, &tell_of_children, &usual_child_action_);
}

CWorkerPool::~CWorkerPool() {
    if (stop_signal_ != 0) ::raise(stop_signal_);
    ::sigaction(SIGCHLD, &usual_child_action_, nullptr);
    ::sigprocmask(SIG_SETMASK, &usual_mask_, nullptr);
}

int CWorkerPool::Start(size_t number, Stopping stopping, const std::function<int()>& work) {
    const int messages = ::memfd_create("messages", MFD_CLOEXEC);
    const pid_t process = messages < 0 ? -1 : ::fork();
    if (process == 0) Work(messages, stopping, work);
    const int error = errno;
    if (process < 0) {
        if (messages >= 0) ::close(messages);
        return error;
    }
    workers_.push_back({number, process, messages});
    return 0;
}

void CWorkerPool::Work(int messages, Stopping stopping, const std::function<int()>& work) const {
    ::sigprocmask(SIG_SETMASK, &usual_mask_, nullptr);
    if (stopping == Stopping::kFinish) ::sigprocmask(SIG_BLOCK, &stop_signals_, nullptr);
    ::dup2(messages, STDERR_FILENO);
    ::close(messages);
    // What the program has at hand, such as temporary files, is not the worker's to tidy up.
    ::_exit(work());
}

WorkerEnd CWorkerPool::Wait() {
    while (true) {
        if (std::optional<WorkerEnd> end = TakeEnded()) return std::move(*end);
        TakeSignal(::sigwaitinfo(&awaited_signals_, nullptr));
    }
}

std::optional<WorkerEnd> CWorkerPool::TakeEnded() {
    for (auto worker = workers_.begin(); worker != workers_.end(); ++worker) {
        int status = 0;
        if (::waitpid(worker->process, &status, WNOHANG) != worker->process) continue;
        WorkerEnd end{worker->number, 0, 0, TakeText(worker->messages)};
        if (WIFSIGNALED(status)) end.signal = WTERMSIG(status);
        if (WIFEXITED(status)) end.status = WEXITSTATUS(status);
        workers_.erase(worker);
        return end;
    }
    return std::nullopt;
}

void CWorkerPool::TakeSignal(int signal) {
    if (sigismember(&stop_signals_, signal) != 1) return;
    const bool is_first = stop_signal_ == 0;
    if (is_first) stop_signal_ = signal;
    for (const Worker& worker : workers_) ::kill(worker.process, is_first ? signal : SIGKILL);
}

size_t ProcessorCores() { return std::max<size_t>(1, std::thread::hardware_concurrency()); }

}  // namespace brindle
