#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "check/mending.h"
#include "check/tuning/checks.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/post_arguments.h"
#include "host/console/messages.h"
#include "host/files/input_file.h"
#include "host/files/input_kind.h"
#include "host/files/output_files.h"
#include "host/load/loaded_drawing.h"

namespace brindle::host {
namespace {

struct CheckArguments {
    std::vector<std::string> paths;
    std::string tuning;  // of -t
    std::string fix;     // empty, `write` or `dry`
    PostArguments post;
};

// A file of the command line, read once: to know it, and to check it.
struct CheckedFile {
    std::string path;
    std::optional<std::string> text;  // of one that can't be read again
};

struct CheckedFiles {
    std::vector<CheckedFile> tunings, drawings;
    bool all_read = true;
};

CheckedFiles ReadFiles(const std::vector<std::string>& paths) {
    CheckedFiles files;
    for (const std::string& path : paths) {
        std::optional<std::string> text = ReadInputFile(path);
        if (!text) {
            files.all_read = false;
            continue;
        }
        std::vector<CheckedFile>& kind = IsDrawing(path, *text) ? files.drawings : files.tunings;
        if (!IsStream(path)) text.reset();
        kind.push_back({path, std::move(text)});
    }
    return files;
}

// A drawing for which there is no tuning.
JobOutcome CheckDrawing(CheckedFile& file, const JobOptions& job) {
    std::optional<LoadedDrawing> drawing =
        LoadDrawing(file.path, nullptr, {job.allowed, job.comparison.skipped_tools}, std::move(file.text));
    if (!drawing) return JobOutcome::kNotMade;
    TellOfDrawing(*drawing);
    const size_t losses = drawing->findings.Count(Severity::kLoss);
    if (job.strict && losses + drawing->findings.Count(Severity::kWarning) > 0) return JobOutcome::kNotMade;
    return losses > 0 ? JobOutcome::kLossy : JobOutcome::kMade;
}

// ---- Mending ----

void ShowChanges(const std::string& path, const std::vector<ChangedLine>& changed) {
    for (const ChangedLine& line : changed) {
        std::cout << PrintableText(path) << ":" << line.number << ":\n- " << PrintableText(line.before) << "\n";
        if (!line.is_removed) std::cout << "+ " << PrintableText(line.after) << "\n";
    }
}

// Mends what is safe, unless it is `dry`, and shows it. False, with a message printed, if the file can't be replaced.
bool MendTuning(CheckedFile& tuning, const CheckArguments& arguments, const JobOptions& job) {
    TuningFile file;
    if (!ReadTuningFile(tuning.path, file, std::exchange(tuning.text, {}))) return false;
    CDiagnostics diagnostics(file.path, file.lines);
    diagnostics.Allow(job.allowed);
    CheckAll(CPlacedTuning(file.lines), diagnostics);
    const std::vector<ChangedLine> changed = MendedLines(file.lines, diagnostics);
    if (arguments.post.report.format == ReportFormat::kText) ShowChanges(tuning.path, changed);
    tuning.text = file.text;
    if (changed.empty() || arguments.fix == "dry") return true;
    tuning.text = MendedText(file.text, changed);
    COutputFiles files;
    return files.Add(tuning.path, *tuning.text) && files.Commit();
}

// The jobs of the drawings, as `post` would do them with no word of where to.
OutputPlan PlanOf(std::vector<CheckedFile>& drawings) {
    OutputRequest request;
    for (const CheckedFile& drawing : drawings) request.drawings.push_back(drawing.path);
    OutputPlan plan = PlanOutput(request);
    for (size_t i = 0; i < drawings.size(); ++i) plan.jobs[i].drawing_text = std::move(drawings[i].text);
    return plan;
}

JobOutcome CheckFiles(CheckedFiles& files, const CheckArguments& arguments, const PostCall& options) {
    JobOutcome worst = files.all_read ? JobOutcome::kMade : JobOutcome::kNotMade;
    OutputPlan plan;
    if (files.tunings.empty()) {
        for (CheckedFile& drawing : files.drawings) worst = std::max(worst, CheckDrawing(drawing, options.job));
    } else {
        plan = PlanOf(files.drawings);
    }
    for (CheckedFile& tuning : files.tunings) {
        if (!arguments.fix.empty() && !MendTuning(tuning, arguments, options.job)) {
            worst = JobOutcome::kNotMade;
            continue;
        }
        PostCall call = options;
        call.tuning = tuning.path;
        call.tuning_text = std::move(tuning.text);
        worst = std::max(worst, RunPostCall(call, plan));
    }
    return worst;
}

void AddCount(size_t count, const char* one, const char* many, std::string& summary) {
    if (count == 0) return;
    if (!summary.empty()) summary += ", ";
    summary.append(std::to_string(count)).append(" ").append(count == 1 ? one : many);
}

void PrintSummary(const CReport& report) {
    std::string summary;
    AddCount(report.Count(MessageKind::kError), "error", "errors", summary);
    AddCount(report.Count(MessageKind::kLoss), "loss", "losses", summary);
    AddCount(report.Count(MessageKind::kWarning), "warning", "warnings", summary);
    AddCount(report.Count(MessageKind::kInfo), "info", "infos", summary);
    if (!summary.empty()) std::cerr << summary << "\n";
}

int Check(CheckArguments& arguments) {
    if (!arguments.tuning.empty()) arguments.paths.insert(arguments.paths.begin(), arguments.tuning);
    if (arguments.paths.empty()) throw CLI::RequiredError("TUNING");
    PostCall options = TakeArguments(arguments.post);
    options.job.only_check = true;
    if (std::count(arguments.paths.begin(), arguments.paths.end(), kStandardInput) > 1) {
        PrintError({}, "standard input can be read once only");
        return kBadUsage;
    }
    const auto is_stream = [](const std::string& path) { return IsStream(path); };
    if (arguments.fix == "write" && std::any_of(arguments.paths.begin(), arguments.paths.end(), is_stream)) {
        PrintError({}, "--fix writes files: what comes from standard input or a device can't be mended");
        return kBadUsage;
    }
    CheckedFiles files;
    std::vector<Message> messages;
    {
        CCollectedMessages collected;
        files = ReadFiles(arguments.paths);
        messages = collected.Release();
    }
    if (files.tunings.size() > 1 && !files.drawings.empty()) {
        PrintError({}, "several tunings are checked without drawings only: a drawing is run with one tuning");
        return kBadUsage;
    }
    CReport report(arguments.post.report);
    TellAll(std::move(messages), &report);
    const int status = StatusOf(CheckFiles(files, arguments, options));
    if (arguments.post.report.format == ReportFormat::kText) PrintSummary(report);
    report.Write();
    return status;
}

}  // namespace

void AddCheckCommand(CLI::App& app, int& status) {
    const auto arguments = std::make_shared<CheckArguments>();
    CLI::App& command =
        AddCommand(app, "check", "Reports what is wrong with tunings and drawings, with file and line",
                   {.usage = "TUNING [DRAWING...]",
                    .notes = "With drawings, all is done that `post` does, but nothing is written.\n"
                             "error    a line that is dropped, or a value that is read differently than it\n"
                             "         looks\n"
                             "loss     NC text that does not cut what is drawn\n"
                             "warning  what has another effect than it seems to, or none; a dropped line that\n"
                             "         looks like a comment, which a tuning can't have\n"
                             "info     what has no effect under the options of the tuning; keys that hold\n"
                             "         their default value are not reported",
                    .example = "brindle check laser.tun\nbrindle check laser.tun box.cf2",
                    .status = "0 without errors and losses, 1 with errors or if a file can't be read, 2 for wrong "
                              "usage, 3 with losses."});
    command
        .add_option("TUNING|DRAWING", arguments->paths,
                    "Tunings, or one tuning and the drawings to run with it, in any order: their contents say which is "
                    "what; - is standard input")
        ->type_name("FILE");
    command.add_option("-t,--tuning", arguments->tuning, "Another way to name a tuning")->type_name("FILE");
    command
        .add_flag("--fix{write}", arguments->fix,
                  "Mend what is safe in the tunings, show it, and say what remains: letter case of keys, the one key a "
                  "letter off, doubled lines, values that are written otherwise than they are read; --fix=dry only "
                  "shows it")
        ->check(CLI::IsMember({"write", "dry"}));
    AddSharedOptions(command, arguments->post);
    command.callback([arguments, &status] { status = Check(*arguments); });
}

}  // namespace brindle::host
