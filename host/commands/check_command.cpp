#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "check/tuning/checks.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/files/tuning_file.h"

namespace brindle::host {
namespace {

struct CheckOptions {
    std::vector<std::string> paths;
    std::string tuning;  // of -t
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

int Check(CheckOptions& options) {
    if (!options.tuning.empty()) options.paths.insert(options.paths.begin(), options.tuning);
    if (options.paths.empty()) throw CLI::RequiredError("TUNING");
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
    CLI::App& command =
        AddCommand(app, "check", "Reports what is wrong with a tuning, with file and line",
                   {.usage = "TUNING...",
                    .notes = "error    a line that is dropped, or a value that is read differently than it\n"
                             "         looks\n"
                             "warning  what has another effect than it seems to, or none; a dropped line that\n"
                             "         looks like a comment, which a tuning can't have\n"
                             "info     what has no effect under the options of the tuning; keys that hold\n"
                             "         their default value are not reported",
                    .example = "brindle check laser.tun",
                    .status = "0 without errors, 1 with errors or if a file can't be read, 2 for wrong usage."});
    command.add_option("TUNING", options->paths, "Tunings; - is standard input")->type_name("FILE");
    command.add_option("-t,--tuning", options->tuning, "Another way to name a tuning")->type_name("FILE");
    command.add_flag("--strict", options->strict, "Warnings count as errors in the exit status");
    command.callback([options, &status] { status = Check(*options); });
}

}  // namespace brindle::host
