#include "host/reference/rule_reference.h"

#include <algorithm>

#include "host/console/messages.h"
#include "host/console/text_table.h"
#include "host/reference/rule_examples.h"
#include "platform/text_file.h"

namespace brindle::host {
namespace {

constexpr std::string_view kRulesIntroduction =
    R"(# The rules

What `brindle` looks for in tunings, drawings and NC text. `brindle check` tells what it finds in a tuning, `brindle post` also
what it finds in a drawing, and where the NC text does not cut what is drawn; `--allow NAME` says that findings of a rule are
meant. The name of a rule never changes. This page is made by `brindle rules --markdown`, and its examples are run by the
tests. `brindle rules NAME` prints one entry.

| Severity | Means |
|---|---|
| error | a line that is dropped, or a value that is read differently than it looks; no job is done with it |
| loss | the NC text does not cut what is drawn |
| warning | something has another effect than it seems to, or none |
| info | something has no effect under the options of the tuning |

Each rule has an example that it finds, and a twin that it leaves alone. The lines of an example are added to a tuning at the
end of this page, the mill if no other is named, and take the place of its lines of the same key; `without KEY` takes a line away.
Where no drawing is shown, it is the one at the end of this page.

)";

struct GroupHeading {
    RuleGroup first;  // from this group of the table on
    std::string_view heading;
};

constexpr GroupHeading kHeadings[] = {
    {RuleGroup::kLines, "Lines of a tuning"},
    {RuleGroup::kRunTimeData, "Run-time data"},
    {RuleGroup::kValues, "Values and options"},
    {RuleGroup::kMissingDirectives, "What templates lack"},
    {RuleGroup::kTools, "Tools"},
    {RuleGroup::kTextSyntax, "Words of texts"},
    {RuleGroup::kTemplateEvents, "Directives and what they read"},
    {RuleGroup::kPairing, "A drawing with a tuning"},
    {RuleGroup::kDrawing, "Drawings"},
    {RuleGroup::kNcText, "NC text"},
};

// Empty if the rule goes on with the section of the one before it.
std::string_view HeadingBefore(const RuleInfo& rule, std::string_view section) {
    const auto found = std::find_if(std::begin(kHeadings), std::end(kHeadings),
                                    [&rule](const GroupHeading& heading) { return heading.first == rule.group; });
    return found == std::end(kHeadings) || found->heading == section ? std::string_view() : found->heading;
}

void AddIndented(std::string_view indent, std::string_view text, std::string& out) {
    for (const std::string_view line : SplitLines(text)) out.append(indent).append(PrintableText(line)).append("\n");
}

// A sentence for a page: words between < and > as code.
std::string ForPage(std::string_view sentence) {
    std::string text;
    for (size_t at = 0; at < sentence.size();) {
        const size_t begin = std::min(sentence.find("<@", at), sentence.size());
        const size_t end = std::min(sentence.find('>', begin), sentence.size());
        text.append(sentence.substr(at, begin - at));
        if (begin == sentence.size()) break;
        text.append("`").append(sentence.substr(begin, end + 1 - begin)).append("`");
        at = end + 1;
    }
    return text;
}

// One side of an example.
std::string FilesText(std::string_view side, const RuleExample& example, const ExampleFiles& files,
                      std::string_view indent) {
    const std::string in(indent);
    std::string text = in + std::string(side);
    if (example.machine != "mill") text.append(", added to the ").append(example.machine);
    text += "\n";
    const std::string deeper = in + "  ";
    AddIndented(deeper, files.tuning, text);
    if (!files.drawing_name.empty()) text += deeper + "with the drawing " + PrintableText(files.drawing_name) + "\n";
    if (!files.drawing.empty() && !files.tuning.empty()) text += in + "with the drawing\n";
    AddIndented(deeper, files.drawing, text);
    if (files.tuning.empty() && files.drawing.empty() && files.drawing_name.empty()) text += deeper + "as it is\n";
    return text;
}

std::string ExampleText(const RuleInfo& rule, std::string_view indent) {
    const RuleExample& example = ExampleOf(rule.rule);
    return FilesText("wrong", example, example.wrong, indent) + FilesText("right", example, example.right, indent);
}

std::string MachineText(const ExampleMachine& machine, std::string_view indent) {
    std::string text;
    AddIndented(indent, machine.lines, text);
    return text;
}

}  // namespace

std::string_view SeverityWord(Severity severity) {
    switch (severity) {
        case Severity::kError: return "error";
        case Severity::kLoss: return "loss";
        case Severity::kWarning: return "warning";
        case Severity::kInfo: break;
    }
    return "info";
}

std::string RuleEntry(const RuleInfo& rule) {
    std::string text = std::string(rule.name) + "\n";
    CTextTable facts("  ");
    facts.AddRow({std::string(SeverityWord(rule.severity)), std::string(rule.meaning)});
    facts.AddRow({"way out", std::string(rule.way_out)});
    return text + facts.Text() + "\n" + ExampleText(rule, "  ");
}

std::string MachineEntry(std::string_view name) {
    for (const ExampleMachine& machine : ExampleMachines()) {
        if (machine.name != name) continue;
        return std::string(name) + "\n  " + std::string(machine.about) + "\n\n" + MachineText(machine, "  ");
    }
    return {};
}

std::string RuleList() {
    std::string_view section;
    CTextTable table("  ");
    for (const RuleInfo& rule : Rules()) {
        if (const std::string_view heading = HeadingBefore(rule, section); !heading.empty()) {
            if (!section.empty()) table.AddRow({});
            table.AddRow({std::string(heading)});
            section = heading;
        }
        table.AddRow(
            {"  " + std::string(rule.name), std::string(SeverityWord(rule.severity)), std::string(rule.meaning)});
    }
    table.AddRow({});
    table.AddRow({"Tunings of the examples"});
    for (const ExampleMachine& machine : ExampleMachines()) {
        table.AddRow({"  " + std::string(machine.name), {}, std::string(machine.about)});
    }
    return table.Text();
}

std::string RulePage() {
    std::string page(kRulesIntroduction);
    std::string_view section;
    for (const RuleInfo& rule : Rules()) {
        if (const std::string_view heading = HeadingBefore(rule, section); !heading.empty()) {
            page.append("## ").append(heading).append("\n\n");
            section = heading;
        }
        page.append("### ").append(rule.name).append("\n\n*").append(SeverityWord(rule.severity)).append("*: ");
        page.append(ForPage(rule.meaning)).append(" ").append(ForPage(rule.way_out)).append("\n\n");
        page.append(ExampleText(rule, "    ")).append("\n");
    }
    page += "## The tunings and the drawing of the examples\n\n";
    for (const ExampleMachine& machine : ExampleMachines()) {
        page.append("### ").append(machine.name).append("\n\n").append(machine.about).append("\n\n");
        page.append(MachineText(machine, "    ")).append("\n");
    }
    page += "### The drawing\n\n";
    AddIndented("    ", CommonExampleDrawing(), page);
    return page;
}

}  // namespace brindle::host
