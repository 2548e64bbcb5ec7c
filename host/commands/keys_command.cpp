#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "check/tuning/nearest_name.h"
#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/console/text_table.h"
#include "text/ascii.h"
#include "text/message_words.h"
#include "text/numbers.h"
#include "tuning/key_catalogue.h"
#include "tuning/type_words.h"

namespace brindle::host {
namespace {

const char* ScopeText(KeyScope scope) {
    switch (scope) {
        case KeyScope::kGlobal: return "alone";
        case KeyScope::kTool: return "per tool";
        case KeyScope::kEvent: return "per event";
    }
    return "";
}

std::string DefaultText(const KeyInfo& info, const KeyDefault& value) {
    if (!value.HasValue()) return "-";
    switch (info.kind) {
        case KeyKind::kBool: return value.Bool() ? "true" : "false";
        case KeyKind::kInt: return std::to_string(value.Int());
        case KeyKind::kReal: return ShortNumber(value.Real());
        case KeyKind::kText: return value.Text().empty() ? "(empty)" : std::string(value.Text());
        case KeyKind::kTemplate: break;
    }
    return "-";
}

bool Holds(std::string_view text, std::string_view pattern) {
    return UpperCase(text).find(UpperCase(pattern)) != std::string::npos;
}

// A line of a tuning that holds no item: run-time data.
struct LineForm {
    std::string_view word;  // the first one
    std::string_view form;
    std::string_view meaning;
};

constexpr LineForm kLineForms[] = {
    {"UPD", "UPD 2026_03_01_10_00_00", "When the run-time data were last changed."},
    {"ROW", "ROW TEXT NAME [HIDE]", "The next row of the table of run-time data; HIDE keeps it from the dialog."},
    {"COL", "COL TEXT NAME [HIDE]", "The next column of the table."},
    {"MSG", "MSG TEXT NAME [HIDE]", "The next message: a value outside the rows and columns."},
    {"DATASETDEF", "DATASETDEF NAME", "A dataset, such as one of a material, above the lines of its values."},
    {"DSD", "DSD DATASET TYPE WORD VALUE",
     "The value of a word such as RTD(1,2) or RTD(1) in a dataset; TYPE is TEXT, or R_EXPR or T_EXPR for an expression "
     "that the host computes."},
};

// Which rows a pattern asks for: those whose names hold it, those under the heading that it is, or the one that reads
// the key that it is. A tool's key may lack the prefix.
class RowFilter {
public:
    explicit RowFilter(std::string_view pattern)
        : pattern_(pattern), of_tool_(std::string("T1_").append(pattern)), match_(MatchKey(pattern)) {
        if (match_.event == nullptr && MatchKey(of_tool_).event != nullptr) match_ = MatchKey(of_tool_);
    }

    bool Wants(const KeyInfo& info) const {
        if (match_.info != nullptr) return &info == match_.info;
        return Holds(info.name, pattern_) || EqualNoCase(info.group, pattern_);
    }
    bool Wants(const EventInfo& event) const {
        return match_.info != nullptr ? &event == match_.event : Holds(event.prefix, pattern_);
    }
    bool Wants(const LineForm& line) const { return pattern_.empty() || EqualNoCase(line.word, pattern_); }

private:
    std::string_view pattern_;
    std::string of_tool_;  // the pattern as a key of a tool
    KeyMatch match_;
};

// The rows of one group; empty if the filter wants none.
std::string GroupText(std::string_view group, const RowFilter& filter) {
    CTextTable table("  ");
    table.AddRow({"key", "type", "default", "editor", "scope", "meaning"});
    bool has_rows = false;
    for (const KeyInfo& info : KeyCatalogue()) {
        if (info.group != group || !filter.Wants(info)) continue;
        has_rows = true;
        table.AddRow({std::string(info.name), std::string(TypeWord(info.kind)), DefaultText(info, info.read_default),
                      DefaultText(info, info.editor_default), ScopeText(info.scope), std::string(info.meaning)});
    }
    return has_rows ? std::string(group).append("\n").append(table.Text()).append("\n") : std::string();
}

std::string EventsText(const RowFilter& filter) {
    CTextTable table("  ");
    table.AddRow({"event", "scope", "executed"});
    bool has_rows = false;
    for (const EventInfo& event : TemplateEvents()) {
        if (!filter.Wants(event)) continue;
        has_rows = true;
        table.AddRow({std::string(event.prefix), event.per_tool ? "per tool" : "alone", std::string(event.when)});
    }
    return has_rows ? "Events of templates\n" + table.Text() + "\n" : std::string();
}

std::string LinesText(const RowFilter& filter) {
    CTextTable table("  ");
    table.AddRow({"line", "meaning"});
    bool has_rows = false;
    for (const LineForm& line : kLineForms) {
        if (!filter.Wants(line)) continue;
        has_rows = true;
        table.AddRow({std::string(line.form), std::string(line.meaning)});
    }
    return has_rows ? "Lines of run-time data\n" + table.Text() + "\n" : std::string();
}

int PrintKeys(const std::string& pattern) {
    const RowFilter filter(pattern);
    std::string text;
    std::string_view group;
    for (const KeyInfo& info : KeyCatalogue()) {
        if (info.group == group) continue;
        group = info.group;
        text += GroupText(group, filter);
    }
    text += EventsText(filter) + LinesText(filter);
    if (text.empty()) {
        PrintError({}, "no key is or holds " + Quoted(pattern) + Suggestion(IntendedKey(pattern)));
        return kBadInput;
    }
    text.pop_back();
    std::cout << text;
    return kGood;
}

}  // namespace

void AddKeysCommand(CLI::App& app, int& status) {
    const auto pattern = std::make_shared<std::string>();
    CLI::App* const command = app.add_subcommand("keys", "Lists the keys that a tuning can hold");
    command->add_option("PATTERN", *pattern,
                        "Part of the wanted keys, a whole key such as T3_Speed_P1_sV1, a heading of the "
                        "list, or the first word of a line of run-time data");
    command->footer(
        "default  what a run uses for a key that is missing, - if it needs none\n"
        "editor   what the tuning editor stores for it\n"
        "scope    how the key is written: alone; per tool: after T1_, T2_ and so on, or T_ for the\n"
        "         default tool; per event: after the event, as in Line_tTmpl, or after tool and\n"
        "         event, as in T1_ToolOn_tTmpl");
    command->callback([pattern, &status] { status = PrintKeys(*pattern); });
}

}  // namespace brindle::host
