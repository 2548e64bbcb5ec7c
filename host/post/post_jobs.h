// The drawings of `brindle post`, one after the other or several at a time.
#pragma once

#include <cstddef>

#include "host/files/output_plan.h"
#include "host/post/post_job.h"

namespace brindle::host {

// Runs all jobs of `plan`, up to `at_a_time` of them at the same time, each in a session of its own, and gives the
// worst outcome; a job that fails does not keep the others from being made. The messages of a job stay together, and
// jobs print them in the order of the plan. If several run at a time and the program is asked to stop, it begins no
// further job and finishes those that it has begun; but while a drawing may come from a stream, which can keep its
// reader waiting for ever, it stops at once.
JobOutcome RunPostJobs(OutputPlan& plan, const CommonJob& common, size_t at_a_time);

}  // namespace brindle::host
