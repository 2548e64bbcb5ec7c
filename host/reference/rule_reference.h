// The reference of the rules of all checks, made from their table and their examples.
#pragma once

#include <string>
#include <string_view>

#include "check/rules.h"

namespace brindle::host {

// The word by which messages name a severity: `warning`.
std::string_view SeverityWord(Severity severity);

// The entry of one rule: what it means, the way out, and its example.
std::string RuleEntry(const RuleInfo& rule);

// A tuning to which examples add their lines, empty if none has that name.
std::string MachineEntry(std::string_view name);

// All rules and these tunings, one line each.
std::string RuleList();

// The whole reference as a page in Markdown.
std::string RulePage();

}  // namespace brindle::host
