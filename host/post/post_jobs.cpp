#include "host/post/post_jobs.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "host/console/messages.h"
#include "host/console/progress_line.h"
#include "host/post/stop_request.h"

namespace brindle::host {
namespace {

JobOutcome RunInTurn(OutputPlan& plan, const CommonJob& common) {
    JobOutcome worst = JobOutcome::kMade;
    for (size_t i = 0; i < plan.jobs.size(); ++i) {
        const std::string progress = "drawing " + std::to_string(i + 1) + " of " + std::to_string(plan.jobs.size()) +
                                     ": " + plan.jobs[i].drawing;
        worst = std::max(worst, RunPostJob(plan.jobs[i], common, plan.roles, progress));
    }
    return worst;
}

// Threads that each take the next job of the plan until there is none.
class CJobThreads {
public:
    CJobThreads(OutputPlan& plan, const CommonJob& common)
        : plan_(plan), common_(common), sink_(CMessageSink::Current()), messages_(plan.jobs.size()) {
        const auto is_stream = [](const PlannedJob& job) { return IsStream(job.drawing); };
        if (std::none_of(plan.jobs.begin(), plan.jobs.end(), is_stream)) stop_.emplace();
        ShowProgress();
    }

    JobOutcome Run(size_t threads) {
        {
            std::vector<std::jthread> others;
            try {
                while (others.size() + 1 < threads) others.emplace_back([this] { Work(); });
            } catch (const std::system_error&) {
                // No further thread to be had: those that there are do the work.
            }
            Work();
        }
        progress_.reset();
        if (failure_) std::rethrow_exception(failure_);
        return worst_;
    }

private:
    void Work() {
        try {
            while (!stop_ || !stop_->IsMade()) {
                const size_t job = next_++;
                if (job >= plan_.jobs.size()) return;
                CCollectedMessages messages;
                const JobOutcome outcome = RunPostJob(plan_.jobs[job], common_, plan_.roles, {});
                Finish(job, outcome, messages.Release());
            }
        } catch (...) {
            const std::lock_guard lock(end_of_jobs_);
            failure_ = std::current_exception();
            next_ = plan_.jobs.size();
        }
    }

    void Finish(size_t job, JobOutcome outcome, std::vector<Message> messages) {
        const std::lock_guard lock(end_of_jobs_);
        worst_ = std::max(worst_, outcome);
        ++done_;
        messages_[job] = std::move(messages);
        progress_.reset();
        for (; printed_ < messages_.size() && messages_[printed_]; ++printed_) {
            TellAll(std::move(*messages_[printed_]), sink_);
        }
        if (done_ < messages_.size()) ShowProgress();
    }

    void ShowProgress() {
        progress_.emplace(std::to_string(done_) + " of " + std::to_string(messages_.size()) + " drawings done");
    }

    OutputPlan& plan_;
    const CommonJob& common_;
    CMessageSink* const sink_;  // of the call
    std::optional<CStopRequest> stop_;
    std::atomic<size_t> next_ = 0;  // to be begun

    std::mutex end_of_jobs_;  // what follows is changed at the end of a job
    JobOutcome worst_ = JobOutcome::kMade;
    std::exception_ptr failure_;  // of the program itself
    size_t done_ = 0;
    std::vector<std::optional<std::vector<Message>>> messages_;  // of each job that is done
    size_t printed_ = 0;                                         // jobs whose messages are printed
    std::optional<CProgressLine> progress_;
};

}  // namespace

JobOutcome RunPostJobs(OutputPlan& plan, const CommonJob& common, size_t at_a_time) {
    const size_t threads = std::min(at_a_time, plan.jobs.size());
    if (threads < 2) return RunInTurn(plan, common);
    return CJobThreads(plan, common).Run(threads);
}

}  // namespace brindle::host
