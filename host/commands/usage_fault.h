// What is wrong with a command line, in words of the command and not of its parser.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace brindle::host {

// The command that was asked for, `app` itself if there is none.
const CLI::App& AskedCommand(const CLI::App& app);

// A line on what `error` found in the arguments of `app`, without the end of the line. An unknown option or command
// comes before whatever else is wrong, and the one that was probably meant is named.
std::string UsageFault(const CLI::App& app, const CLI::ParseError& error);

// `no command 'pots' (did you mean post?)`
std::string UnknownCommand(const CLI::App& app, const std::string& name);

}  // namespace brindle::host
