// Pieces of work in processes of their own, for work on what a process has one of, such as the library's session.
#pragma once

#include <sys/types.h>

#include <csignal>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brindle {

// How a worker ended.
struct WorkerEnd {
    size_t number = 0;     // as it was given to Start
    int status = 0;        // what the work gave, 0 to 255
    int signal = 0;        // other than 0: it was killed by this signal, and there is no status
    std::string messages;  // what it wrote to standard error
};

// Starts workers and waits for them; the program has one pool at a time and no threads. While the pool lives, a signal
// that asks the program to stop (SIGINT, SIGTERM, SIGHUP, unless it is ignored) is passed on to the workers, the second
// one kills them. When the pool goes, the first one has its usual effect on the program.
class CWorkerPool {
public:
    // Signals to stop end an interruptible worker at once; any other finishes its work.
    enum class Stopping { kFinish, kInterruptible };

    CWorkerPool();
    CWorkerPool(const CWorkerPool&) = delete;
    CWorkerPool& operator=(const CWorkerPool&) = delete;
    // All workers must have ended.
    ~CWorkerPool();

    // Starts a process that does `work` and exits with what it gives; `work` must not throw. 0, or the error number if
    // no process could be had.
    int Start(size_t number, Stopping stopping, const std::function<int()>& work);
    // Waits until one of the running workers, of which there must be one, has ended.
    WorkerEnd Wait();

    size_t running() const { return workers_.size(); }
    bool asked_to_stop() const { return stop_signal_ != 0; }

private:
    struct Worker {
        size_t number;
        pid_t process;
        int messages;  // descriptor of the file that takes its standard error
    };

    [[noreturn]] void Work(int messages, Stopping stopping, const std::function<int()>& work) const;
    std::optional<WorkerEnd> TakeEnded();
    void TakeSignal(int signal);

    sigset_t stop_signals_;
    sigset_t awaited_signals_;
    sigset_t usual_mask_;
    struct sigaction usual_child_action_;
    int stop_signal_ = 0;
    std::vector<Worker> workers_;
};

// The number of workers that this machine runs at the same time, at least 1.
size_t ProcessorCores();

}  // namespace brindle
