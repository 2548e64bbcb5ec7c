#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/number_pair.h"
#include "host/commands/option_forms.h"
#include "host/commands/post_arguments.h"
#include "host/console/date_text.h"
#include "host/console/messages.h"
#include "platform/local_time.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

constexpr int kMostJobs = 1024;

// Headings of the help text.
constexpr char kJobGroup[] = "Job";
constexpr char kFindingsGroup[] = "Findings";
constexpr char kComparisonGroup[] = "Comparison with the drawing";
constexpr char kTextGroup[] = "Texts for the NC file";
constexpr char kDataGroup[] = "Run-time data";

// ---- Forms of arguments ----

bool IsSize(const std::string& text) {
    const std::optional<Point> size = PairText(text, 'x');
    return size && size->x >= 0.0 && size->y >= 0.0;
}

bool IsPosition(const std::string& text) { return PairText(text, ',').has_value(); }
bool IsLength(const std::string& text) { return ParseNumber(text).has_value(); }
bool IsSetting(const std::string& text) { return ParseSetting(text).has_value(); }
bool IsAssignment(const std::string& text) { return text.find('=', 1) != std::string::npos; }

// ---- Declaration ----

void AddFileOptions(CLI::App& command, PostArguments& arguments) {
    command.add_option("DRAWING", arguments.drawings, "CFF2 drawings; - is standard input")
        ->required()
        ->type_name("FILE");
    command.add_option("-t,--tuning", arguments.tuning, "Tuning of the machine; - is standard input")
        ->required()
        ->type_name("FILE");
    command
        .add_option("-o,--output", arguments.output,
                    "NC file, or a folder for it; - is standard output. By default the drawing's "
                    "name with .nc in the current folder, and standard output for a drawing from "
                    "standard input. Several segments are numbered before the extension: box-1.nc, "
                    "box-2.nc")
        ->type_name("PATH");
    command
        .add_option("--trace", arguments.trace,
                    "Write which template made which block, and the messages where they "
                    "happened, into a file or folder")
        ->type_name("PATH");
}

void AddRunOptions(CLI::App& command, PostArguments& arguments) {
    SetChoices(*command.add_option("--encoding", arguments.encoding,
                                   "Characters of the NC file; by default utf8. latin1 has one byte for each and fails "
                                   "at a character above U+00FF"),
               {"utf8", "latin1"});
    SetWholeNumber(*command.add_option("-j,--jobs", arguments.jobs,
                                       "Drawings to work on at the same time; 0: as many as there are processor cores. "
                                       "By default one after the other"),
                   0, kMostJobs);
    command.add_flag("--fly-ratios", arguments.job.fly_ratios, "Print the ratios that fly mode measures at its tests");
    command.add_flag("--verbose", arguments.job.fly_ratios)->group("");  // its name before
}

void AddReportOptions(CLI::App& command, PostArguments& arguments) {
    CLI::Option* const format = command.add_option(
        "--format", arguments.format,
        "Form of the findings; by default text, on standard error. json and sarif are one document for the call, on "
        "standard output");
    SetChoices(*format->group(kFindingsGroup), {"text", "json", "sarif"});
    command
        .add_flag("--quiet", arguments.report.quiet, "Say nothing of warnings and infos; losses and errors are told")
        ->group(kFindingsGroup);
}

void AddComparisonOptions(CLI::App& command, PostArguments& arguments) {
    CLI::Option* const tolerance =
        command
            .add_option("--tolerance", arguments.job.comparison.tolerance,
                        "How far a cut may lie beside what is drawn, beyond what decimals cost, mm; by default 0.02")
            ->group(kComparisonGroup);
    SetSize(*tolerance);
    CLI::Option* const skipped =
        command
            .add_option("--skip-tool", arguments.job.comparison.skipped_tools,
                        "A tool that this machine lacks on purpose: nothing is said of its records; may be repeated")
            ->allow_extra_args(false)
            ->group(kComparisonGroup);
    SetWholeNumber(*skipped, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max());
    command
        .add_option("--allow", arguments.allowed,
                    "Findings that are meant, by the names of their rules, as not-cut,stray-cut: "
                    "nothing is said of them")
        ->delimiter(',')
        ->type_name("RULE,...")
        ->check([](const std::string& name) {
            return FindRule(name) != nullptr ? std::string() : Quoted(name) + " is the name of no rule";
        })
        ->group(kComparisonGroup);
    command.add_flag("--strict", arguments.job.strict, "Make no NC file if there is a warning or a loss")
        ->group(kComparisonGroup);
}

void AddJobOptions(CLI::App& command, PostArguments& arguments) {
    auto* const inches =
        command.add_flag("--inches", arguments.inches,
                         "NC text in inches, whatever the drawing's unit, if bOutUnitsAuto is true; the "
                         "lengths of the drawing stay as they are");
    auto* const millimetres =
        command.add_flag("--mm", arguments.millimetres, "The same in millimetres; not together with --inches");
    inches->excludes(millimetres);
    const auto add = [&command](const char* name, std::string& text, const char* form, auto is_good, const char* help) {
        CLI::Option* const option = command.add_option(name, text, help)->group(kJobGroup);
        SetForm(*option, form, is_good);
    };
    inches->group(kJobGroup);
    millimetres->group(kJobGroup);
    add("--blank", arguments.blank, "WIDTHxHEIGHT", IsSize, "Size of the blank, mm");
    add("--final", arguments.final_position, "X,Y", IsPosition, "Where the machine goes at the end, mm");
    add("--rotary-radius", arguments.rotary_radius, "NUMBER", IsLength, "Radius of the rotary axis, mm");
    CLI::Option* const tile =
        command
            .add_option("--tile", arguments.job.tile,
                        "Other than 0: output a tile, the main program alone with its calls expanded")
            ->group(kJobGroup);
    SetWholeNumber(*tile, std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max());
}

void AddTextOptions(CLI::App& command, PostArguments& arguments) {
    JobOptions& job = arguments.job;
    const auto add = [&command](const char* name, auto& text, const char* help) {
        command.add_option(name, text, help)->type_name("TEXT")->group(kTextGroup);
    };
    add("--date", job.date, "Date; by default today's, as 2024-03-01; '' for none");
    add("--time", job.time, "Time; by default now, as 10:00:00; '' for none");
    add("--material", job.material, "Name of the material file");
    add("--tune-pick", job.tuning_pick,
        "Name of the tuning in a host's menu; the values last used are stored under it");
    add("--drawing-name", job.drawing_name, "Replaces the drawing file's name");
    add("--output-name", job.output_name, "Replaces the NC file's name");
    add("--tuning-name", job.tuning_name, "Replaces the tuning file's name");
}

void AddRunDataOptions(CLI::App& command, PostArguments& arguments) {
    command.add_option("--rtd", arguments.definition, "Definition file, in place of the tuning's own definition")
        ->type_name("FILE")
        ->group(kDataGroup);
    command.add_option("--dataset", arguments.job.dataset, "Dataset to use; by default the first")
        ->type_name("NAME")
        ->group(kDataGroup);
    const auto add = [&command](const char* name, std::vector<std::string>& texts, const char* form, auto is_good,
                                const char* help) {
        CLI::Option* const option = command.add_option(name, texts, help)->allow_extra_args(false)->group(kDataGroup);
        SetForm(*option, form, is_good);
    };
    add("--set", arguments.settings, "RTD(ROW,COLUMN)=VALUE", IsSetting,
        "Value of a run-time data word, also RTD(MESSAGE)=VALUE, for this run; may be repeated");
    add("--expr", arguments.job.run_data.given, "EXPRESSION=VALUE", IsAssignment,
        "Value of an expression; other expressions may use its name; may be repeated");
}

std::string ExpressionHelp() {
    std::string text =
        "Expressions of run-time data that give a number are computed, unless --expr\n"
        "gives their value. They may use + - * / ^, comparisons, ?:, functions such as\n"
        "sqrt, round, min and max, the names that --expr gives numbers to, and these:\n";
    for (const JobValueInfo& info : JobValueTable()) {
        std::string name(info.name);
        name.resize(10, ' ');
        text.append("  ").append(name).append(info.meaning).append("\n");
    }
    text.pop_back();
    return text;
}

constexpr char kStatusHelp[] =
    "0 if nothing is lost, 1 if there is no NC file, 2 for wrong usage, and 3 if the NC text does not cut what is "
    "drawn. "
    "Of several drawings it is 1 if one is not made, else 3 if one loses something, else 0.";

// ---- Work ----

// Standard output can hold one text only.
std::string FaultOfFormat(const PostArguments& arguments, const OutputPlan& plan) {
    if (arguments.report.format == ReportFormat::kText) return {};
    for (const PlannedJob& job : plan.jobs) {
        for (const std::string& path : {job.nc_path, job.trace_path}) {
            if (path != kStandardOutput && path != "/dev/stdout" && path != "/dev/fd/1") continue;
            return "--format " + arguments.format +
                   " writes to standard output, which an NC text or a trace would get, too: name a file with -o";
        }
    }
    return {};
}

int Post(PostArguments& arguments) {
    OutputRequest request{arguments.drawings, arguments.output, arguments.trace, {arguments.tuning}};
    if (!arguments.definition.empty()) request.inputs.push_back(arguments.definition);
    OutputPlan plan = PlanOutput(request);
    PostCall call = TakeArguments(arguments);
    if (plan.fault.empty()) plan.fault = FaultOfFormat(arguments, plan);
    if (!plan.fault.empty()) {
        PrintError({}, plan.fault);
        return plan.lacks_folder ? kBadInput : kBadUsage;
    }
    CReport report(arguments.report);
    const int status = StatusOf(RunPostCall(call, plan));
    report.Write();
    return status;
}

}  // namespace

void AddSharedOptions(CLI::App& command, PostArguments& arguments) {
    DateText now = LocalDateText(Now());
    arguments.job.date = std::move(now.date);
    arguments.job.time = std::move(now.time);
    AddRunOptions(command, arguments);
    AddReportOptions(command, arguments);
    AddComparisonOptions(command, arguments);
    AddJobOptions(command, arguments);
    AddTextOptions(command, arguments);
    AddRunDataOptions(command, arguments);
}

PostCall TakeArguments(PostArguments& arguments) {
    JobOptions& job = arguments.job;
    arguments.report.format = arguments.format == "json"    ? ReportFormat::kJson
                              : arguments.format == "sarif" ? ReportFormat::kSarif
                                                            : ReportFormat::kText;
    if (arguments.inches || arguments.millimetres) job.inches = arguments.inches;
    job.blank = PairText(arguments.blank, 'x');
    job.final_position = PairText(arguments.final_position, ',');
    job.rotary_radius = ParseNumber(arguments.rotary_radius);
    for (const std::string& name : arguments.allowed) job.allowed.push_back(FindRule(name)->rule);
    if (arguments.encoding == "latin1") job.encoding = Encoding::kLatin1;
    for (const std::string& text : arguments.settings) job.run_data.settings.push_back(*ParseSetting(text));
    return {arguments.tuning, {}, arguments.definition, arguments.jobs, job};
}

int StatusOf(JobOutcome outcome) {
    switch (outcome) {
        case JobOutcome::kMade: return kGood;
        case JobOutcome::kLossy: return kLosses;
        case JobOutcome::kNotMade: break;
    }
    return kBadInput;
}

void AddPostCommand(CLI::App& app, int& status) {
    CLI::App& command = AddCommand(app, "post", "Makes NC files from drawings",
                                   {.usage = "-t TUNING DRAWING...",
                                    .notes = ExpressionHelp(),
                                    .example = "brindle post -t laser.tun box.cf2\n"
                                               "brindle post -t laser.tun -o nc -j 0 drawings/*.cf2",
                                    .status = kStatusHelp});
    const auto arguments = std::make_shared<PostArguments>();
    AddFileOptions(command, *arguments);
    AddSharedOptions(command, *arguments);
    command.callback([arguments, &status] { status = Post(*arguments); });
}

}  // namespace brindle::host
