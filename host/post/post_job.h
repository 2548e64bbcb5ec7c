// One drawing of `brindle post`, from its file to its NC files.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geometry/plane_math.h"
#include "host/files/output_plan.h"
#include "host/load/loaded_tuning.h"
#include "host/post/nc_text.h"
#include "host/post/run_data.h"
#include "host/post/tuning_findings.h"
#include "verify/job_comparison.h"

namespace brindle::host {

// What the user told of a job. Lengths are millimetres; what is not set is left to the library.
struct JobOptions {
    std::optional<bool> inches;  // otherwise the drawing decides
    std::optional<Point> blank;
    std::optional<Point> final_position;
    std::optional<double> rotary_radius;
    short tile = 0;
    std::string date, time;
    std::string dataset;  // that was asked for, as the tuning spells it
    std::string material, tuning_pick;
    // In the place of the names of the files themselves.
    std::optional<std::string> drawing_name, output_name, tuning_name;

    ComparisonOptions comparison;
    std::vector<Rule> allowed;  // findings that are meant
    bool strict = false;        // a job with a warning is not made
    bool only_check = false;    // nothing is written

    RunDataRequest run_data;
    Encoding encoding = Encoding::kUtf8;
    bool fly_ratios = false;  // those that fly mode measures are printed
};

// What has become of a job, the worst last.
enum class JobOutcome {
    kMade,
    kLossy,    // made, but the NC text does not cut what is drawn
    kNotMade,  // messages say why; no file is written
};

// What all jobs of a call have in common.
struct CommonJob {
    const LoadedTuning& tuning;
    CTuningFindings& findings;
    const JobOptions& options;
};

// Runs the tuning over a drawing, in a session of its own, and writes what `planned` says; `roles` takes in the files
// of segments. `progress` is shown on a terminal meanwhile. What it tells is complete when it returns.
JobOutcome RunPostJob(const PlannedJob& planned, const CommonJob& common, CFileRoles& roles,
                      const std::string& progress);

}  // namespace brindle::host
