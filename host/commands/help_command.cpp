#include <iostream>
#include <memory>
#include <string>

#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/commands/usage_fault.h"

namespace brindle::host {
namespace {

void Print(const CLI::App& command) {
    std::cout << command.get_formatter()->make_help(&command, command.get_name(), CLI::AppFormatMode::Normal);
}

void PrintHelp(const CLI::App& app, const std::string& name) {
    if (name.empty()) return Print(app);
    const auto named = app.get_subcommands([&name](const CLI::App* command) { return command->get_name() == name; });
    if (named.empty()) throw CLI::ParseError(UnknownCommand(app, name), kBadUsage);
    Print(*named[0]);
}

}  // namespace

void AddHelpCommand(CLI::App& app, int& status) {
    CLI::App& command = AddCommand(app, "help", "Explains a command, as its --help does",
                                   {.usage = "[COMMAND]",
                                    .notes = "Without COMMAND the commands are listed.",
                                    .example = "brindle help post",
                                    .status = kUsualStatus});
    const auto name = std::make_shared<std::string>();
    command.add_option("COMMAND", *name, "What to explain");
    command.callback([&app, name, &status] {
        PrintHelp(app, *name);
        status = kGood;
    });
}

}  // namespace brindle::host
