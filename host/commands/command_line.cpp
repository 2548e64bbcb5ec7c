#include "host/commands/command_line.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "platform/version.h"

namespace brindle::host {
namespace {

std::string VersionText() { return "brindle " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor); }

std::string FailureText(const CLI::App* app, const CLI::Error& error) {
    const CLI::App* command = app;
    for (const CLI::App* sub : app->get_subcommands()) command = sub;
    std::string name = app->get_name();
    if (command != app) name += " " + command->get_name();
    return "brindle: " + PrintableText(error.what()) + "\nRun `" + name + " --help` for the usage.\n";
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
        if (app.get_subcommands().empty()) throw CLI::RequiredError("A command");
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kGood : kBadUsage;
    }
    return status;
}

// What was printed is only now written to the end, so it is only now known whether it could be.
int WriteOutput(int status) {
    int error = std::fflush(stdout) == 0 ? 0 : errno;
    if (error == 0 && !std::cout) error = EIO;
    if (error == 0) return status;
    PrintError({"standard output"}, "can't be written: " + std::generic_category().message(error));
    return status == kGood ? kBadInput : status;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    CLI::App app("Configurable NC post-processor for flat cutting jobs.", "brindle");
    int status = kGood;
    AddPostCommand(app, status);
    AddCheckCommand(app, status);
    AddDumpCommand(app, status);
    AddKeysCommand(app, status);
    AddDirectivesCommand(app, status);
    AddRulesCommand(app, status);
    AddDataCommand(app, status);
    AddPlotCommand(app, status);
    AddEditCommand(app, status);
    app.require_subcommand(0, 1);
    app.failure_message(FailureText);
    app.set_version_flag("--version", VersionText());
    for (CLI::App* command : app.get_subcommands({})) command->set_version_flag("--version", VersionText());
    return WriteOutput(Parse(app, argc, argv, status));
}

}  // namespace brindle::host
