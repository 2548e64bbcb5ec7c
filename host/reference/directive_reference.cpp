#include "host/reference/directive_reference.h"

#include <initializer_list>
#include <string_view>
#include <vector>

#include "host/console/text_table.h"
#include "host/reference/directive_examples.h"
#include "language/record_needs.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "text/ascii.h"
#include "text/numbers.h"

namespace brindle::host {
namespace {

constexpr std::string_view kIntroduction =
    R"(# The template language

A tuning holds templates: lines of text that a run writes at its events, `Line_tTmpl` for each line of the drawing,
`T1_ToolOn_tTmpl` when tool 1 goes on. This page is made by `brindle directives --markdown`, and its examples are run by the
tests. `brindle directives NAME` prints one entry, `brindle keys` all options, `brindle check` finds mistakes in a tuning.

## Lines

A line holds text, which is written as it is, and words between `<` and `>`:

- `<@Name>` or `<@Name[KEYWORDS]>` is a directive: it writes characters, or changes what later words write. Names count with
  their case. `<` before anything but `@` and `RTD` is text.
- `<RTD(2,3)>` is the run-time data value of row 2 and column 3, `<RTD(1)>` that of message 1.
- `!` begins a comment, which goes on to the end of the line. A line that begins with it writes nothing.

Words act from left to right, each on what those before it have left. A line whose words all come to nothing writes no block;
an empty line writes an empty block. Text that can't be read is reported and left out: the run goes on. Options that are texts,
such as addresses and codes, may hold words too.

In a tuning file a whole template is one line: after its key come, in turn, an N word, which begins a line of the template,
and the text of that line. A blank ends the text, so a blank within it is written `!#SP#!`. This template has three lines, of
which the second is empty:

    MULTI Move_tTmpl NNUL G0!#SP#!<@StartPtWords> NNUL !#EMPTY#! NNUL M8

A tuning file has no comments: a line that begins with `!`, `;` or `#` is dropped, and `brindle check` reports it.

)";

constexpr std::string_view kKeywordsHeading = R"(
## Keywords

Keywords are written between `[` and `]`, with commas or blanks between them, in any case; a directive ignores those that it does
not know. A value is in parentheses, as in `NDEC(3)`. There must be no blank before the `[`.

)";

// What texts and lines of a tuning hold besides directives.
struct OtherWord {
    std::string_view name;
    std::string_view form;
    std::string_view meaning;
};

constexpr OtherWord kOtherWords[] = {
    {"RTD", "<RTD(r,c)>", "run-time data value of row r and column c; RTD(m) is that of message m"},
    {"chr", "chr(n)",
     "the character of code n, 0 to 255, put into the finished NC text: chr(33) is a !, which would begin a comment"},
    {"!", "!", "begins a comment, to the end of the line of a template; not in options, where it is text"},
    {"!#SP#!", "!#SP#!", "in a tuning file, a blank within a text"},
    {"!#EMPTY#!", "!#EMPTY#!", "in a tuning file, a text without characters"},
    {"NNUL", "NNUL", "N word: in a tuning file, begins a line of a template"},
    {"NBIG", "NBIG", "N word, kept when a tuning is stored; acts as NNUL, for block numbers come from @NBlockOn"},
    {"NSM", "NSM", "N word, as NBIG"},
    {"NINIT", "NINITn", "N word with a whole number n, as NBIG"},
};

constexpr std::string_view kDefaults =
    R"(
Where an entry says what holds without keywords, *output mode* means absolute or incremental as the program that is being
written, `WORD` means with the address, and a name such as `bAxisDataModal` means the option of that name.

## The examples

)";

constexpr std::string_view kExampleTuning =
    R"(Each example adds its template, and the options that it shows, to this tuning:

)";

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) text.append(part);
    return text;
}

std::string PointText(Point p) { return Joined({"(", ShortNumber(p.x), ", ", ShortNumber(p.y), ")"}); }

std::string RecordText(const ExampleRecord& record) {
    using enum ExampleRecord::Kind;
    const std::string turned =
        record.degrees == 0.0 ? std::string() : Joined({", turned by ", ShortNumber(record.degrees), " degrees"});
    const std::string from = PointText(record.start);
    const std::string to = PointText(record.end);
    switch (record.kind) {
        case kLine: return Joined({"a line from ", from, " to ", to});
        case kArc:
            return Joined({record.radius > 0.0 ? "a clockwise" : "a counter-clockwise", " arc from ", from, " to ", to,
                           " around ", PointText(record.center)});
        case kText:
            return Joined(
                {"the text ", record.name, " at ", from, turned, ", ", ShortNumber(record.height), " mm high"});
        case kCall:
            return Joined({"a call of ", record.name, " at ", from, turned, record.mirror_x ? ", mirrored in X" : ""});
    }
    return {};
}

std::string RecordsText(std::span<const ExampleRecord> records) {
    std::string text;
    for (const ExampleRecord& record : records) text.append(text.empty() ? "" : "; ").append(RecordText(record));
    return text;
}

std::string DrawingText(const ExampleDrawing& drawing) {
    const std::string text = RecordsText(drawing.main);
    return drawing.sub.empty() ? text : Joined({text, "; sub-program PART: ", RecordsText(drawing.sub)});
}

std::string NeedText(const DirectiveInfo& directive) {
    const Records needed = NeededRecords(directive);
    if (needed == kAllRecords) return {};
    const char* const which = needed == kArcRecord    ? "arcs"
                              : needed == kTextRecord ? "texts"
                              : needed == kCallRecord ? "calls of sub-programs"
                              : needed == kCutRecords ? "lines and arcs"
                                                      : "lines, arcs and texts";
    return std::string("only for ") + which + (WritesZeroElsewhere(directive) ? "; 0 for other records" : "");
}

std::vector<const KeywordInfo*> KeywordsOf(const DirectiveInfo& directive) {
    std::vector<const KeywordInfo*> keywords;
    for (const KeywordInfo& info : KeywordTable()) {
        if (directive.keywords.Has(info.keyword)) keywords.push_back(&info);
    }
    return keywords;
}

// `text` with each of its lines after `first` or, from the second line on, after as many blanks.
void AddLines(std::string_view first, std::string_view text, std::string& out) {
    std::string lead(first);
    for (const std::string_view line : SplitLines(text)) {
        out.append(lead).append(line).append("\n");
        lead.assign(first.size(), ' ');
    }
}

std::string ExampleText(const DirectiveExample& example, std::string_view indent) {
    const std::string in(indent);
    std::string text;
    AddLines(in + "template  ", TemplateLineOf(example), text);
    if (!example.options.empty()) AddLines(in + "options   ", example.options, text);
    AddLines(in + "drawing   ", DrawingText(FindExampleDrawing(example.drawing)), text);
    AddLines(in + "prints    ", example.prints, text);
    return text;
}

// The examples of a directive, or of the syntax if the name is empty.
std::string ExamplesPage(std::string_view directive) {
    std::string page;
    for (const DirectiveExample& example : DirectiveExamples()) {
        if (example.directive != directive) continue;
        if (!example.note.empty()) page.append(example.note).append("\n\n");
        page.append(ExampleText(example, "    ")).append("\n");
    }
    return page;
}

std::string OtherWordTablePage() {
    std::string page = "| Word | Meaning |\n|---|---|\n";
    for (const OtherWord& word : kOtherWords) {
        page.append("| `").append(word.form).append("` | ").append(word.meaning).append(" |\n");
    }
    return page;
}

std::string KeywordEntry(const KeywordInfo& keyword) {
    std::string directives;
    for (const DirectiveInfo& directive : DirectiveTable()) {
        if (directive.keywords.Has(keyword.keyword))
            directives.append(directives.empty() ? "" : " ").append(directive.name);
    }
    CTextTable facts("  ");
    facts.AddRow({"keyword", std::string(keyword.meaning)});
    facts.AddRow({"of", directives});
    return Joined({keyword.form, "\n", facts.Text()});
}

std::string KeywordTablePage() {
    std::string page = "| Keyword | Meaning |\n|---|---|\n";
    for (const KeywordInfo& info : KeywordTable()) {
        page.append("| `").append(info.form).append("` | ").append(info.meaning).append(" |\n");
    }
    return page;
}

std::string JobPage() {
    const ExampleJob& job = TheExampleJob();
    const auto code = [](const wchar_t* value) { return Joined({"`", WideToNarrow(value), "`"}); };
    return Joined({"The job: date ",
                   code(job.date),
                   ", time ",
                   code(job.time),
                   ", drawing ",
                   code(job.drawing_name),
                   ", NC file ",
                   code(job.output_name),
                   ", material file ",
                   code(job.material),
                   ",\ntuning file ",
                   code(job.tuning_name),
                   ", picked as ",
                   code(job.tuning_pick),
                   ", dataset ",
                   code(job.dataset),
                   ".\nThe blank is ",
                   ShortNumber(job.blank.x),
                   " by ",
                   ShortNumber(job.blank.y),
                   " mm, its lower left corner (0, 0), the rotary radius ",
                   ShortNumber(job.rotary_radius),
                   " mm.\nAll records have tool 1, line type 1, a cut width of ",
                   ShortNumber(kExampleCutWidth),
                   " mm and ",
                   std::to_string(kExampleBridgeCount),
                   " bridges of ",
                   ShortNumber(kExampleBridgeWidth),
                   " mm.\nThe grain is horizontal, the inside up.\n\n"});
}

std::string EntryPage(const DirectiveInfo& directive) {
    std::string page = Joined({"#### ", directive.name, "\n\nGives: ", directive.gives, ".\n"});
    if (const std::string need = NeedText(directive); !need.empty()) page += Joined({"Written ", need, ".\n"});
    page += "\n";
    std::string keywords;
    for (const KeywordInfo* info : KeywordsOf(directive)) {
        keywords.append(keywords.empty() ? "`" : ", `").append(info->form).append("`");
    }
    if (directive.name == "@IODwell") keywords = "none; all that is between the brackets is the dwell's parameter";
    page += Joined({"Keywords: ", keywords.empty() ? "none" : keywords, ".\n"});
    if (!directive.defaults.empty()) page.append("Without them: ").append(directive.defaults).append(".\n");
    return page.append("\n").append(ExamplesPage(directive.name));
}

}  // namespace

std::string DirectiveEntry(const DirectiveInfo& directive) {
    std::string text = std::string(directive.name) + "\n";
    CTextTable facts("  ");
    facts.AddRow({"gives", std::string(directive.gives)});
    if (const std::string need = NeedText(directive); !need.empty()) facts.AddRow({"written", need});
    if (!directive.defaults.empty()) facts.AddRow({"without keywords", std::string(directive.defaults)});
    text += facts.Text();
    CTextTable keywords("    ");
    for (const KeywordInfo* info : KeywordsOf(directive)) {
        keywords.AddRow({std::string(info->form), std::string(info->meaning)});
    }
    if (!KeywordsOf(directive).empty()) text += "\n  keywords\n" + keywords.Text();
    for (const DirectiveExample& example : DirectiveExamples()) {
        if (example.directive != directive.name) continue;
        text.append("\n").append(ExampleText(example, "  "));
        if (!example.note.empty()) AddLines("  note      ", example.note, text);
    }
    return text;
}

std::string OtherWordEntry(std::string_view word) {
    const auto is_it = [word](std::string_view name, std::string_view form) {
        const bool is_name = EqualNoCase(name, word.substr(0, word.find('(')));
        return is_name || EqualNoCase(form, word);
    };
    for (const KeywordInfo& info : KeywordTable()) {
        if (is_it(info.name, info.form)) return KeywordEntry(info);
    }
    for (const OtherWord& other : kOtherWords) {
        if (is_it(other.name, other.form)) return Joined({other.form, "\n  ", other.meaning, "\n"});
    }
    return {};
}

std::string DirectiveList() {
    std::string_view group;
    CTextTable table("  ");
    for (const DirectiveInfo& directive : DirectiveTable()) {
        if (directive.group != group) {
            if (!group.empty()) table.AddRow({});
            table.AddRow({std::string(directive.group)});
            group = directive.group;
        }
        std::string keywords;
        for (const KeywordInfo* info : KeywordsOf(directive)) {
            keywords.append(keywords.empty() ? "" : " ").append(info->name);
        }
        table.AddRow({Joined({"  ", directive.name}), std::string(directive.gives), keywords});
    }
    CTextTable words("  ");
    for (const KeywordInfo& info : KeywordTable()) words.AddRow({Joined({"  ", info.form}), std::string(info.meaning)});
    CTextTable others("  ");
    for (const OtherWord& word : kOtherWords) {
        others.AddRow({Joined({"  ", word.form}), std::string(word.meaning)});
    }
    return Joined({"Directives\n", table.Text(), "\nKeywords\n", words.Text(), "\nOther words\n", others.Text()});
}

std::string DirectivePage() {
    std::string page(kIntroduction);
    page.append(OtherWordTablePage()).append(kKeywordsHeading).append(KeywordTablePage());
    page.append(kDefaults).append(JobPage()).append(kExampleTuning);
    AddLines("    ", ExampleTuning(), page);
    page.append("\n").append(ExamplesPage("")).append("## Directives\n\n");
    std::string_view group;
    for (const DirectiveInfo& directive : DirectiveTable()) {
        if (directive.group != group) page.append("### ").append(directive.group).append("\n\n");
        group = directive.group;
        page += EntryPage(directive);
    }
    page.pop_back();
    return page;
}

}  // namespace brindle::host
