#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "check/tuning/checks.h"
#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/files/tuning_file.h"

namespace brindle::host {
namespace {

struct CheckOptions {
    std::vector<std::string> paths;
    bool strict = false;
};

struct Counts {
    size_t errors = 0, warnings = 0, infos = 0;
    bool unreadable = false;
};

void CheckFile(const std::string& path, Counts& counts) {
    TuningFile file;
    if (!ReadTuningFile(path, file)) {
        counts.unreadable = true;
        return;
    }
    CDiagnostics diagnostics(file.path, file.lines);
    CheckAll(CPlacedTuning(file.lines), diagnostics);
    PrintDiagnostics(diagnostics);
    counts.errors += diagnostics.Count(Severity::kError);
    counts.warnings += diagnostics.Count(Severity::kWarning);
    counts.infos += diagnostics.Count(Severity::kInfo);
}

void AddCount(size_t count, const char* what, std::string& summary) {
    if (count == 0) return;
    if (!summary.empty()) summary += ", ";
    summary += Counted(count, what);
}

int Check(const CheckOptions& options) {
    Counts counts;
    for (const std::string& path : options.paths) CheckFile(path, counts);
    std::string summary;
    AddCount(counts.errors, "error", summary);
    AddCount(counts.warnings, "warning", summary);
    AddCount(counts.infos, "info", summary);
    if (!summary.empty()) std::cerr << summary << "\n";
    const bool bad = counts.unreadable || counts.errors > 0 || (options.strict && counts.warnings > 0);
    return bad ? kBadInput : kGood;
}

}  // namespace

void AddCheckCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* const command = app.add_subcommand("check", "Reports what is wrong with a tuning, with file and line");
    command->add_option("TUNING", options->paths, "Tunings; - is standard input")->required()->type_name("FILE");
    command->add_flag("--strict", options->strict, "Warnings count as errors in the exit status");
    command->footer(
        "error    a line that is dropped, or a value that is read differently than it looks\n"
        "warning  what has another effect than it seems to, or none; a dropped line that looks\n"
        "         like a comment, which a tuning can't have\n"
        "info     what has no effect under the options of the tuning; keys that hold their default\n"
        "         value are not reported\n"
        "Exit status 0 without errors, 1 with errors, 2 for wrong usage.");
    command->callback([options, &status] { status = Check(*options); });
}

}  // namespace brindle::host
