// What `--help` prints: one layout for all commands, without what the parser knows of its options for itself.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brindle::host {

// What the help of a command says that its options do not.
struct CommandHelp {
    const char* usage = "";    // what follows the name and [OPTIONS]
    std::string notes = {};    // in lines as they are printed
    const char* example = "";  // lines to type
    const char* status = "";   // what the exit statuses mean, a sentence that follows "Exit status:"
};

// The exit statuses of most commands.
inline constexpr char kUsualStatus[] =
    "0 if all went well, 1 for bad input or if something could not be written, 2 for wrong usage.";

// A new command of `app`. `does` says in a few words what for.
CLI::App& AddCommand(CLI::App& app, const char* name, const char* does, CommandHelp help);

// The layout for a command that is not made by AddCommand, which is the program as a whole.
void SetHelp(CLI::App& app, CommandHelp help);

// `Usage: brindle post [OPTIONS] -t TUNING DRAWING...`
std::string UsageLine(const CLI::App& command);

}  // namespace brindle::host
