// The drawings of `brindle post -j`, several at a time.
#pragma once

#include <cstddef>

#include "host/post/output_plan.h"
#include "host/post/post_job.h"

namespace brindle::host {

// Runs all jobs of `plan`, up to `most` at the same time, each in a process of its own, and gives the exit status. The
// messages of a job stay together, and jobs print them in the order of the plan. If the program is asked to stop, it
// begins no further job, and those that read their drawing from a file are finished before it stops.
int RunParallelJobs(OutputPlan& plan, const LoadedTuning& tuning, const JobOptions& options, size_t most);

}  // namespace brindle::host
