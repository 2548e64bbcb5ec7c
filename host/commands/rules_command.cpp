#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "check/tuning/nearest_name.h"
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
    CLI::App* const command =
        app.add_subcommand("rules", "Explains what is looked for in tunings, drawings and NC text");
    CLI::Option* const name = command->add_option("NAME", options->name, "One rule, or one tuning of the examples");
    command->add_flag("--markdown", options->markdown, "The whole reference as a page in Markdown")->excludes(name);
    command->footer(
        "Without NAME all rules are listed, with NAME its entry is printed: what it means, the way out, and an\n"
        "example that it finds, with a twin that it leaves alone.");
    command->callback([options, &status] { status = PrintRules(*options); });
}

}  // namespace brindle::host
