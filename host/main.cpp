// `brindle`: post-processes drawings, and looks into tunings.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "host/commands.h"
#include "host/messages.h"
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

// The arguments, last one first, as the parser takes them. It would give `--date=` the argument behind it as its value.
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

int Run(int argc, char** argv) {
    CLI::App app("Configurable NC post-processor for flat cutting jobs.", "brindle");
    int status = kGood;
    AddPostCommand(app, status);
    AddCheckCommand(app, status);
    AddDumpCommand(app, status);
    AddKeysCommand(app, status);
    AddDirectivesCommand(app, status);
    AddDataCommand(app, status);
    app.require_subcommand(0, 1);
    app.failure_message(FailureText);
    app.set_version_flag("--version", VersionText());
    for (CLI::App* command : app.get_subcommands({})) command->set_version_flag("--version", VersionText());
    return Parse(app, argc, argv, status);
}

}  // namespace
}  // namespace brindle::host

int main(int argc, char** argv) {
    // A reader that goes away shows as a failed write, so that no temporary file is left.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return brindle::host::Run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "brindle: internal failure: %s\n", error.what());
        return brindle::host::kBadInput;
    }
}
