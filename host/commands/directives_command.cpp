#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "check/tuning/nearest_name.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/reference/directive_reference.h"

namespace brindle::host {
namespace {

struct DirectivesOptions {
    std::string name;
    bool markdown = false;
};

// The entry of a directive, whose name may lack the `@`, or of another word.
int PrintEntry(const std::string& name) {
    const std::string full = name.starts_with('@') ? name : "@" + name;
    if (const DirectiveInfo* const directive = FindDirective(full)) {
        std::cout << DirectiveEntry(*directive);
        return kGood;
    }
    if (const std::string entry = OtherWordEntry(name); !entry.empty()) {
        std::cout << entry;
        return kGood;
    }
    PrintError({}, "no directive " + Quoted(full) + Suggestion(NearestDirective(full)));
    return kBadInput;
}

int PrintDirectives(const DirectivesOptions& options) {
    if (!options.name.empty()) return PrintEntry(options.name);
    std::cout << (options.markdown ? DirectivePage() : DirectiveList());
    return kGood;
}

}  // namespace

void AddDirectivesCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<DirectivesOptions>();
    CLI::App& command =
        AddCommand(app, "directives", "Explains the words of templates",
                   {.usage = "[NAME]",
                    .notes = "Without NAME all directives, keywords and other words are listed, with NAME its\n"
                             "entry is printed, that of a directive with examples.",
                    .example = "brindle directives EndPtWords",
                    .status = "0 if all went well, 1 if there is no such word, 2 for wrong usage."});
    CLI::Option* const name =
        command.add_option("NAME", options->name, "One directive, with or without its @, or another word of the list")
            ->type_name("NAME");
    command.add_flag("--markdown", options->markdown, "The whole reference as a page in Markdown")->excludes(name);
    command.callback([options, &status] { status = PrintDirectives(*options); });
}

}  // namespace brindle::host
