#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "check/tuning/nearest_name.h"
#include "host/commands/command_help.h"
#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/reference/rule_reference.h"

namespace brindle::host {
namespace {

struct RulesOptions {
    std::string name;
    bool markdown = false;
};

std::string NearestRule(const std::string& name) {
    std::vector<std::string_view> names;
    for (const RuleInfo& rule : Rules()) names.push_back(rule.name);
    return NearestName(name, names);
}

int PrintRule(const std::string& name) {
    if (const RuleInfo* const rule = FindRule(name)) {
        std::cout << RuleEntry(*rule);
        return kGood;
    }
    if (const std::string entry = MachineEntry(name); !entry.empty()) {
        std::cout << entry;
        return kGood;
    }
    PrintError({}, "no rule " + Quoted(name) + Suggestion(NearestRule(name)));
    return kBadInput;
}

int PrintRules(const RulesOptions& options) {
    if (!options.name.empty()) return PrintRule(options.name);
    std::cout << (options.markdown ? RulePage() : RuleList());
    return kGood;
}

}  // namespace

void AddRulesCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<RulesOptions>();
    CLI::App& command =
        AddCommand(app, "rules", "Explains what is looked for in tunings, drawings and NC text",
                   {.usage = "[NAME]",
                    .notes = "Without NAME all rules are listed, with NAME its entry is printed: what it\n"
                             "means, the way out, and an example that it finds, with a twin that it leaves\n"
                             "alone.",
                    .example = "brindle rules not-cut",
                    .status = "0 if all went well, 1 if there is no such rule, 2 for wrong usage."});
    CLI::Option* const name =
        command.add_option("NAME", options->name, "One rule, or one tuning of the examples")->type_name("NAME");
    command.add_flag("--markdown", options->markdown, "The whole reference as a page in Markdown")->excludes(name);
    command.callback([options, &status] { status = PrintRules(*options); });
}

}  // namespace brindle::host
