// The options that `brindle post` and `brindle check` have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "host/commands/commands.h"
#include "host/console/report.h"
#include "host/post/post_call.h"

namespace brindle::host {

// The command line as it was given.
struct PostArguments {
    std::string tuning, output, trace, definition;
    std::vector<std::string> drawings, settings, allowed;
    bool inches = false, millimetres = false;
    std::string blank, final_position, rotary_radius, encoding;
    size_t jobs = 1;
    std::string format = "text";
    ReportOptions report;
    JobOptions job;
};

// Declares all options but those of files.
void AddSharedOptions(CLI::App& command, PostArguments& arguments);

// What the arguments come to; `arguments.report` is settled, too.
PostCall TakeArguments(PostArguments& arguments);

int StatusOf(JobOutcome outcome);

}  // namespace brindle::host
