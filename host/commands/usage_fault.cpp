#include "host/commands/usage_fault.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "text/message_words.h"
#include "text/nearest_name.h"

namespace brindle::host {
namespace {

bool IsOption(const std::string& argument) { return argument.size() > 1 && argument[0] == '-'; }

std::string UnknownOption(const CLI::App& command, const std::string& argument) {
    const std::string name = argument.substr(0, argument.find('='));
    CNearestName nearest(name);
    std::vector<std::string> known;
    for (const CLI::Option* const option : command.get_options({})) {
        if (option->get_group().empty()) continue;
        for (const std::string& long_name : option->get_lnames()) known.push_back("--" + long_name);
    }
    for (const std::string& option : known) nearest.Offer(option);
    return "no option " + Quoted(name) + Suggestion(nearest.best());
}

// What the parser found no use for.
std::string FaultOfRest(const CLI::App& app, const std::vector<std::string>& rest) {
    const CLI::App& command = AskedCommand(app);
    const auto option = std::find_if(rest.begin(), rest.end(), IsOption);
    if (&command == &app && !IsOption(rest[0])) return UnknownCommand(app, rest[0]);
    if (&command != &app && app.remaining_size() > 0) return Quoted(rest[0]) + " belongs after the command";
    if (option != rest.end()) return UnknownOption(command, *option);
    return Quoted(rest[0]) + " is an argument too many";
}

bool Is(const CLI::ParseError& error, CLI::ExitCodes code) { return error.get_exit_code() == static_cast<int>(code); }

// The parser's sentence with other words between the two names in it.
std::string Reworded(std::string_view sentence, std::string_view words, std::string_view before,
                     std::string_view after) {
    const size_t at = sentence.find(words);
    if (at == sentence.npos) return std::string(sentence);
    return std::string(sentence.substr(0, at)).append(before).append(sentence.substr(at + words.size())).append(after);
}

}  // namespace

const CLI::App& AskedCommand(const CLI::App& app) {
    const std::vector<CLI::App*> commands = app.get_subcommands();
    return commands.empty() ? app : *commands.back();
}

std::string UsageFault(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> rest = app.remaining(true);
    const std::string text = error.what();
    const bool has_unknown = std::any_of(rest.begin(), rest.end(), IsOption);
    if (has_unknown || (Is(error, CLI::ExitCodes::ExtrasError) && !rest.empty())) return FaultOfRest(app, rest);
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
        case CLI::ExitCodes::RequiredError: return Reworded(text, " is required", " is missing", "");
        case CLI::ExitCodes::RequiresError: return Reworded(text, " requires ", " needs ", "");
        case CLI::ExitCodes::ExcludesError: return Reworded(text, " excludes ", " and ", " can't be given together");
        case CLI::ExitCodes::ConversionError:
            return Reworded(Reworded(text, "Could not convert: ", "", ""), " = ", " can't be ", "");
        case CLI::ExitCodes::ArgumentMismatch: break;
        default: return text;
    }
    const std::string name = text.substr(0, text.find(':'));
    if (text.find(" At Most ") != text.npos) return name + " can be given once only";
    return Reworded(Reworded(text, ": 1 required ", " needs a value: ", ""), " missing", "", "");
}

std::string UnknownCommand(const CLI::App& app, const std::string& name) {
    CNearestName nearest(name);
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
        nearest.Offer(command->get_name());
    }
    return "no command " + Quoted(name) + Suggestion(nearest.best());
}

}  // namespace brindle::host
