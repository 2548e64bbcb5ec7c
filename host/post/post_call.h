// A call of `brindle post` or `brindle check`: one tuning, and the drawings that are run with it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "host/files/output_plan.h"
#include "host/post/post_job.h"

namespace brindle::host {

struct PostCall {
    std::string tuning;                      // `-` for standard input
    std::optional<std::string> tuning_text;  // what has been read of it already
    std::string definition;                  // the file in place of the tuning's own definition, empty for none
    size_t at_a_time = 1;                    // drawings, 0 for as many as there are processor cores
    JobOptions job;
};

// Tells what is wrong with the tuning, runs the jobs of `plan` unless it has errors, and gives the worst outcome.
// Without jobs the tuning alone is looked at.
JobOutcome RunPostCall(PostCall& call, OutputPlan& plan);

}  // namespace brindle::host
