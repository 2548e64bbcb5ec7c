#include "host/post/parallel_jobs.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/console/progress_line.h"
#include "platform/worker_pool.h"

namespace brindle::host {
namespace {

class CParallelRun {
public:
    CParallelRun(OutputPlan& plan, const LoadedTuning& tuning, const JobOptions& options, size_t most)
        : plan_(plan), tuning_(tuning), options_(options), most_(most), ends_(plan.jobs.size()) {}

    int Run() {
        for (StartSome(); pool_.running() > 0; StartSome()) {
            WorkerEnd end = pool_.Wait();
            std::optional<WorkerEnd>& place = ends_[end.number];
            place = std::move(end);
            progress_.reset();
            PrintEnded();
        }
        progress_.reset();
        return status_;
    }

private:
    void StartSome() {
        while (next_ < ends_.size() && pool_.running() < most_ && !pool_.asked_to_stop()) {
            if (const int error = Start(next_)) {
                if (pool_.running() > 0) break;  // there may be room when one of them has ended
                ReportNotStarted(error);
            }
            ++next_;
        }
        ShowProgress();
    }

    int Start(size_t number) {
        const PlannedJob& job = plan_.jobs[number];
        // A stream may keep its reader waiting for ever.
        const auto stopping =
            IsStream(job.drawing) ? CWorkerPool::Stopping::kInterruptible : CWorkerPool::Stopping::kFinish;
        return pool_.Start(number, stopping, [this, &job] { return Work(job); });
    }

    int Work(const PlannedJob& job) {
        try {
            return RunPostJob(job, tuning_, options_, plan_.roles, {}) ? kGood : kBadInput;
        } catch (const std::exception& error) {
            PrintError({job.drawing}, std::string("internal failure: ") + error.what());
            return kBadInput;
        }
    }

    // No job runs, so all before this one have printed their messages.
    void ReportNotStarted(int error) {
        progress_.reset();
        PrintError({plan_.jobs[next_].drawing}, "no process for it: " + std::generic_category().message(error));
        status_ = kBadInput;
        printed_ = next_ + 1;
    }

    void PrintEnded() {
        for (; printed_ < ends_.size() && ends_[printed_]; ++printed_) {
            const WorkerEnd& end = *ends_[printed_];
            std::cerr << end.messages;
            if (end.status != kGood || end.signal != 0) status_ = kBadInput;
            if (end.signal != 0 && !pool_.asked_to_stop()) {
                PrintError({plan_.jobs[printed_].drawing},
                           "the process that worked on it was killed by signal " + std::to_string(end.signal));
            }
        }
    }

    void ShowProgress() {
        if (pool_.running() == 0) return;
        const size_t done = next_ - pool_.running();
        progress_.emplace(std::to_string(done) + " of " + std::to_string(ends_.size()) + " drawings done");
    }

    OutputPlan& plan_;
    const LoadedTuning& tuning_;
    const JobOptions& options_;
    size_t most_;
    CWorkerPool pool_;
    std::vector<std::optional<WorkerEnd>> ends_;  // of the job with that number in the plan
    size_t next_ = 0;                             // to be started
    size_t printed_ = 0;                          // jobs whose messages are printed
    std::optional<CProgressLine> progress_;
    int status_ = kGood;
};

}  // namespace

int RunParallelJobs(OutputPlan& plan, const LoadedTuning& tuning, const JobOptions& options, size_t most) {
    return CParallelRun(plan, tuning, options, most).Run();
}

}  // namespace brindle::host
