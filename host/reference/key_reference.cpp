#include "host/reference/key_reference.h"

#include <algorithm>
#include <vector>

#include "host/console/text_table.h"
#include "host/console/wrapped_text.h"
#include "host/reference/key_line.h"
#include "platform/text_file.h"
#include "text/ascii.h"
#include "text/numbers.h"
#include "text/words.h"
#include "tuning/key_catalogue.h"
#include "tuning/type_words.h"

namespace brindle::host {
namespace {

// ---- Words of the tables ----

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

constexpr std::string_view kEventsHeading = "Events of templates";
constexpr std::string_view kLinesHeading = "Lines of run-time data";

std::vector<std::string_view> GroupsOfKeys() {
    std::vector<std::string_view> groups;
    for (const KeyInfo& info : KeyCatalogue()) {
        if (groups.empty() || groups.back() != info.group) groups.push_back(info.group);
    }
    return groups;
}

// ---- Search ----

class CPattern {
public:
    explicit CPattern(std::string_view text) : whole_(UpperCase(text)) { SplitWords(whole_, words_); }
    CPattern(const CPattern&) = delete;
    CPattern& operator=(const CPattern&) = delete;

    bool Finds(std::string_view heading, std::string_view name, std::string_view meaning) const {
        if (UpperCase(heading) == whole_) return true;
        const std::string text = UpperCase(std::string(name).append("\n").append(meaning));
        return std::all_of(words_.begin(), words_.end(),
                           [&text](std::string_view word) { return text.find(word) != text.npos; });
    }

private:
    std::string whole_;
    std::vector<std::string_view> words_;  // of whole_
};

// ---- Layout ----

// A table whose last column is prose, below a heading.
class CProseTable {
public:
    CProseTable(std::string_view heading, const std::vector<std::string>& titles, const std::string& prose)
        : heading_(heading) {
        AddRow(titles, prose);
    }

    void AddRow(const std::vector<std::string>& cells, std::string_view prose) {
        cells_.AddRow(cells);
        prose_.emplace_back(prose);
    }

    // Empty if there is no row but that of the titles. Prose has lines of its own where there is no room beside the
    // other cells.
    std::string Text(size_t width) const {
        constexpr size_t kNarrowest = 30, kIndent = 6;
        if (prose_.size() < 2) return {};
        const std::string cells = cells_.Text();
        const std::vector<std::string_view> rows = SplitLines(cells);
        size_t column = 0;
        for (const std::string_view row : rows) column = std::max(column, row.size() + 2);
        const bool is_beside = width == 0 || width >= column + kNarrowest;
        if (!is_beside) column = kIndent;
        std::string text = heading_ + "\n";
        for (size_t i = 0; i < rows.size(); ++i) {
            std::string line(rows[i]);
            if (!is_beside) text.append(line).append("\n");
            if (!is_beside) line.clear();
            for (const std::string& words : WrappedLines(prose_[i], width == 0 ? 0 : width - std::min(width, column))) {
                line.resize(column, ' ');
                text.append(line).append(words).append("\n");
                line.clear();
            }
        }
        return text + "\n";
    }

private:
    std::string heading_;
    CTextTable cells_{"  "};
    std::vector<std::string> prose_;
};

std::string GroupText(std::string_view group, const CPattern& pattern, size_t width) {
    CProseTable table(group, {"key", "type", "default", "editor", "scope"}, "meaning");
    for (const KeyInfo& info : KeyCatalogue()) {
        if (info.group != group || !pattern.Finds(group, info.name, info.meaning)) continue;
        table.AddRow({std::string(info.name), std::string(TypeWord(info.kind)), DefaultText(info, info.read_default),
                      DefaultText(info, info.editor_default), ScopeText(info.scope)},
                     info.meaning);
    }
    return table.Text(width);
}

std::string EventsText(const CPattern& pattern, size_t width) {
    CProseTable table(kEventsHeading, {"event", "scope"}, "executed");
    for (const EventInfo& event : TemplateEvents()) {
        if (!pattern.Finds(kEventsHeading, event.prefix, event.when)) continue;
        table.AddRow({std::string(event.prefix), event.per_tool ? "per tool" : "alone"}, event.when);
    }
    return table.Text(width);
}

std::string LinesText(const CPattern& pattern, size_t width) {
    CProseTable table(kLinesHeading, {"line"}, "meaning");
    for (const LineForm& line : kLineForms) {
        if (pattern.Finds(kLinesHeading, line.form, line.meaning)) table.AddRow({std::string(line.form)}, line.meaning);
    }
    return table.Text(width);
}

// ---- Entry of one key ----

void AddFact(std::string_view name, std::string_view text, size_t width, std::string& entry) {
    constexpr size_t kColumn = 11;
    std::string line = "  ";
    line.append(name);
    for (const std::string& words : WrappedLines(text, width == 0 ? 0 : width - std::min(width, kColumn))) {
        line.resize(kColumn, ' ');
        entry.append(line).append(words).append("\n");
        line.clear();
    }
}

std::string LineToCopy(const std::string& key, const KeyInfo& info) {
    if (info.kind == KeyKind::kTemplate) return "MULTI " + key + " NNUL TEXT";
    std::string line =
        LineOfDefault(key, info.kind, info.read_default.HasValue() ? info.read_default : info.editor_default);
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string EntryOf(const std::string& key, const KeyMatch& match, size_t width) {
    const KeyInfo& info = *match.info;
    std::string entry = key + "\n";
    AddFact("meaning", info.meaning, width, entry);
    if (match.event != nullptr) AddFact("event", match.event->when, width, entry);
    AddFact("group", info.group, width, entry);
    AddFact("type", TypeWord(info.kind), width, entry);
    AddFact("default", DefaultText(info, info.read_default), width, entry);
    AddFact("editor", DefaultText(info, info.editor_default), width, entry);
    AddFact("scope", ScopeText(info.scope), width, entry);
    AddFact("line", LineToCopy(key, info), 0, entry);
    return entry;
}

// ---- Page ----

constexpr char kAboutKeys[] =
    "# The keys of a tuning\n"
    "\n"
    "Made by `brindle keys --markdown`. `brindle keys WORD` searches names and meanings, `brindle keys KEY` prints "
    "one\n"
    "key with a line to copy, and `brindle check` finds mistakes in a tuning.\n"
    "\n"
    "A line of a tuning is a type, a key and a value, such as `BOOL bTrimZeros true`. *Default* is what a run takes "
    "for\n"
    "a key that is missing, *Editor* what the tuning editor stores for it; - is no value. `Tn_` stands for the prefix\n"
    "of a tool, `T1_`, `T2_` and so on, or `T_` for the default tool, and `EVENT_` for that of an event, which for an\n"
    "event of a tool follows the tool's, as in `T1_ToolOn_tTmpl`.\n";

std::string WrittenKey(const KeyInfo& info) {
    const char* const prefix = info.scope == KeyScope::kTool ? "Tn_" : info.scope == KeyScope::kEvent ? "EVENT_" : "";
    return std::string(prefix).append(info.name);
}

std::string GroupPage(std::string_view group) {
    std::string page =
        "\n## " + std::string(group) + "\n\n| Key | Type | Default | Editor | Meaning |\n|---|---|---|---|---|\n";
    for (const KeyInfo& info : KeyCatalogue()) {
        if (info.group != group) continue;
        page.append("| `").append(WrittenKey(info)).append("` | ").append(TypeWord(info.kind)).append(" | ");
        page.append(DefaultText(info, info.read_default)).append(" | ");
        page.append(DefaultText(info, info.editor_default)).append(" | ").append(info.meaning).append(" |\n");
    }
    return page;
}

std::string EventsPage() {
    std::string page = "\n## " + std::string(kEventsHeading) + "\n\n| Event | Executed |\n|---|---|\n";
    for (const EventInfo& event : TemplateEvents()) {
        page.append("| `").append(event.per_tool ? "Tn_" : "").append(event.prefix).append("` | ");
        page.append(event.when).append(" |\n");
    }
    return page;
}

std::string LinesPage() {
    std::string page = "\n## " + std::string(kLinesHeading) + "\n\n| Line | Meaning |\n|---|---|\n";
    for (const LineForm& line : kLineForms) {
        page.append("| `").append(line.form).append("` | ").append(line.meaning).append(" |\n");
    }
    return page;
}

}  // namespace

std::string KeyList(std::string_view pattern, size_t width) {
    const CPattern wanted(pattern);
    std::string text;
    for (const std::string_view group : GroupsOfKeys()) text += GroupText(group, wanted, width);
    text += EventsText(wanted, width) + LinesText(wanted, width);
    if (!text.empty()) text.pop_back();
    return text;
}

std::string KeyEntry(std::string_view key, size_t width) {
    const std::string of_tool = std::string("T1_").append(key);
    std::string entry;
    for (const std::string& written : {std::string(key), of_tool}) {
        const KeyMatch match = MatchKey(written);
        if (match.info == nullptr) continue;
        entry.append(entry.empty() ? "" : "\n").append(EntryOf(written, match, width));
    }
    return entry;
}

std::string KeyPage() {
    std::string page = kAboutKeys;
    for (const std::string_view group : GroupsOfKeys()) page += GroupPage(group);
    return page + EventsPage() + LinesPage();
}

}  // namespace brindle::host
