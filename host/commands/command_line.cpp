#include "host/commands/command_line.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/usage_fault.h"
#include "host/console/messages.h"
#include "platform/version.h"

namespace brindle::host {
namespace {

constexpr char kStatuses[] =
    "0 if all went well, though there may be warnings; 1 for bad input or a failed job, of which nothing half-written "
    "is left; 2 for wrong usage, as a missing command; 3 if post has made the NC file, but it does not cut what is "
    "drawn.";

std::string VersionText() { return "brindle " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor); }

// The options that every command has.
void AddQuestions(CLI::App& command) {
    command.set_help_flag("-h,--help", "Print this help");
    command.set_version_flag("--version", VersionText(), "Print the version");
}

void PrintFault(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App& command = AskedCommand(app);
    const std::string usage = UsageLine(command);
    const std::string name = &command == &app ? app.get_name() : app.get_name() + " " + command.get_name();
    PrintError({}, UsageFault(app, error));
    if (!usage.empty()) std::cerr << usage << "\n";
    std::cerr << "Run `" << name << " --help` for more.\n";
}

// The arguments, last one first, as the parser takes them. It would give `--date=` the argument after it as its value.
std::vector<std::string> ReversedArguments(int argc, char** argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        const bool is_empty_option = argument.starts_with("--") && argument.find('=') == argument.size() - 1;
        if (is_empty_option) argument.pop_back();
        arguments.push_back(std::move(argument));
        if (is_empty_option) arguments.emplace_back();
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

int Parse(CLI::App& app, int argc, char** argv, const int& status) {
    try {
        app.parse(ReversedArguments(argc, argv));
        if (!app.get_subcommands().empty()) return status;
        PrintError({}, "a command is missing");
        std::cerr << app.help();
    } catch (const CLI::Success& question) {
        app.exit(question);
        return kGood;
    } catch (const CLI::ParseError& error) {
        PrintFault(app, error);
    }
    return kBadUsage;
}

// Whether standard output is a pipe that nobody reads any more, as after `| head`.
bool IsReaderGone() {
    pollfd output = {STDOUT_FILENO, POLLOUT, 0};
    return ::poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
}

// What was printed is only now written to the end, so it is only now known whether it could be.
int WriteOutput(int status) {
    int error = std::fflush(stdout) == 0 ? 0 : errno;
    if (error == 0 && !std::cout) error = EIO;
    if (error == 0) return status;
    if (IsReaderGone()) return status;  // it has seen enough
    PrintError({"standard output"}, "can't be written: " + std::generic_category().message(error));
    return status == kGood ? kBadInput : status;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    CLI::App app("Configurable NC post-processor for flat cutting jobs", "brindle");
    int status = kGood;
    AddPostCommand(app, status);
    AddCheckCommand(app, status);
    AddPlotCommand(app, status);
    AddEditCommand(app, status);
    AddDumpCommand(app, status);
    AddDataCommand(app, status);
    AddKeysCommand(app, status);
    AddDirectivesCommand(app, status);
    AddRulesCommand(app, status);
    AddHelpCommand(app, status);
    app.require_subcommand(0, 1);
    AddQuestions(app);
    for (CLI::App* const command : app.get_subcommands({})) AddQuestions(*command);
    SetHelp(app, {.usage = "COMMAND ...",
                  .notes = "`brindle help COMMAND` explains one.",
                  .example = "brindle post -t laser.tun box.cf2",
                  .status = kStatuses});
    return WriteOutput(Parse(app, argc, argv, status));
}

}  // namespace brindle::host
