#include "host/post/post_call.h"

#include <algorithm>
#include <thread>

#include "host/console/messages.h"
#include "host/load/tuning_report.h"
#include "host/post/given_values.h"
#include "host/post/post_jobs.h"

namespace brindle::host {
namespace {

bool IsUsable(const LoadedTuning& tuning, JobOptions& job) {
    if (!ChooseDataset(tuning, job.dataset, job.run_data.dataset)) return false;
    if (!job.dataset.empty()) job.dataset = job.run_data.dataset;
    return CheckGivenValues(tuning, job.run_data);
}

JobOutcome RunJobs(PostCall& call, OutputPlan& plan, LoadedTuning& tuning, CTuningFindings& findings) {
    if (!TakeTuning(call.definition, tuning)) return JobOutcome::kNotMade;
    if (!ReportOnDefinition(tuning) || !IsUsable(tuning, call.job)) return JobOutcome::kNotMade;
    if (plan.jobs.empty()) {
        const bool is_refused = call.job.strict && findings.Count(Severity::kWarning) > 0;
        return is_refused ? JobOutcome::kNotMade : JobOutcome::kMade;
    }
    const size_t threads = call.at_a_time == 0 ? std::thread::hardware_concurrency() : call.at_a_time;
    return RunPostJobs(plan, {tuning, findings, call.job}, threads);
}

}  // namespace

JobOutcome RunPostCall(PostCall& call, OutputPlan& plan) {
    LoadedTuning tuning;
    if (!ReadTuningFile(call.tuning, tuning.file, std::move(call.tuning_text))) return JobOutcome::kNotMade;
    CTuningFindings findings(tuning.file, call.job.allowed, !call.definition.empty());
    const size_t errors = findings.Count(Severity::kError);
    if (plan.jobs.empty() || errors > 0) {
        findings.TellAll();
    } else {
        findings.TellFirst();
    }
    if (errors > 0) {
        if (!plan.jobs.empty()) NoteRefusal(tuning.file.path, errors);
        if (FirstLineWithNul(tuning.file) == 0 && TakeTuning(call.definition, tuning)) ReportOnDefinition(tuning);
        return JobOutcome::kNotMade;
    }
    const JobOutcome outcome = RunJobs(call, plan, tuning, findings);
    findings.TellRest();
    return outcome;
}

}  // namespace brindle::host
