// Examples of the rules of all checks: for each a tuning, a drawing or both that the rule finds, and a twin of the same
// that it leaves alone. `brindle rules` prints them, and the tests run each one.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "check/rules.h"

namespace brindle::host {

// A tuning to which examples add their lines.
struct ExampleMachine {
    std::string_view name;
    std::string_view about;  // one sentence
    std::string_view base;   // the machine whose lines it takes over, empty for none
    std::string_view lines;  // with line ends between them
};

struct ExampleFiles {
    // Lines with line ends between them. One takes the place of the machine's line of the same key; `without KEY` takes
    // that line away.
    std::string_view tuning = {};
    std::string_view drawing = {};       // the whole of it; empty: the drawing of all examples
    std::string_view drawing_name = {};  // of the file, where it matters
};

struct RuleExample {
    Rule rule;
    ExampleFiles wrong, right;
    std::string_view machine = "mill";
};

std::span<const ExampleMachine> ExampleMachines();
std::string_view CommonExampleDrawing();
// One for each rule, in the order of the rules.
std::span<const RuleExample> RuleExamples();
const RuleExample& ExampleOf(Rule rule);

// All lines of a machine, those of its base first.
std::vector<std::string> MachineLines(std::string_view name);
// The whole tuning and the whole drawing of one side of an example.
std::vector<std::string> TuningLinesOf(const RuleExample& example, const ExampleFiles& files);
std::string DrawingOf(const ExampleFiles& files);

}  // namespace brindle::host
