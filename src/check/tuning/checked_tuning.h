// A tuning as `brindle check` looks at it: its lines cut into words that keep their places, the items that they come
// to, the texts of templates and options with their directives, and the tools.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/findings.h"
#include "check/tuning/template_words.h"
#include "language/directives.h"
#include "tuning/options.h"

namespace brindle {

// A line of the file; its words are what stands between blanks and tabs. One that holds a NUL byte can't be handed to
// the library and has no words.
struct CheckedLine {
    size_t number = 0;  // from 1
    std::string_view text;
    std::vector<std::string_view> words;

    // The word of that index, or the last one if the line has fewer; empty for a line without words.
    std::string_view Word(size_t index) const;
    // The column of a word of this line, from 1.
    size_t ColumnOf(std::string_view word) const { return static_cast<size_t>(word.data() - text.data()) + 1; }
    bool HasTabBefore(std::string_view word) const { return word.data() > text.data() && word.data()[-1] == '\t'; }
};

// A word of a line without its escapes. Knows where each byte of the text stands in the line.
class PlacedText {
public:
    PlacedText(const CheckedLine& line, std::string_view word);
    std::string_view text() const { return text_; }
    size_t line() const { return line_; }
    size_t ColumnOf(size_t at) const { return columns_[std::min(at, columns_.size() - 1)]; }

private:
    std::string text_;
    std::vector<size_t> columns_;  // one for each byte, and one behind them
    size_t line_;
};

// A line that is in force: it stores an item, and no later line stores one under its key.
struct CheckedItem {
    const CheckedLine* line = nullptr;
    std::string_view key;
    KeyMatch match;  // without info if the key is unknown

    // The key is known and the line stores the kind that is read under it.
    bool HasRightKind() const;
};

// A line of a template, up to its comment, or the text of an option. Only known keys of the right kind have texts.
struct CheckedText {
    const CheckedItem* item = nullptr;
    PlacedText placed;
    std::vector<PlacedPiece> pieces;

    bool InTemplate() const { return item->match.event != nullptr; }
    size_t ColumnOf(const PlacedPiece& piece) const { return placed.ColumnOf(piece.at); }
};

// A known directive in a text.
struct DirectiveUse {
    const DirectiveInfo* directive = nullptr;
    KeywordSet keywords;
    const CheckedText* text = nullptr;
    size_t column = 0;  // of its `@`
    size_t length = 0;
};

// A tool prefix that stands in the tuning.
struct CheckedTool {
    int32_t number = 0;                  // -1 for the default tool
    bool own = false;                    // a record can ask for it: its speeds and templates are read
    bool physical = false;               // all but its speeds is read
    const CheckedItem* first = nullptr;  // the first of its keys
    int keys = 0;
};

// What at least one of the tools that a run can reach is or does.
struct ToolAbilities {
    bool any = false;  // there is one
    bool tangential = false;
    bool fly = false;
    bool small_radii = false;  // slows down for them
    bool bare_speeds = false;  // has a speed that begins with a digit, so that no address stands in it
};

class CCheckedTuning {
public:
    // `lines` are those of a file, without their ends; what they point to must outlive the object.
    explicit CCheckedTuning(std::span<const std::string_view> lines);
    CCheckedTuning(const CCheckedTuning&) = delete;
    CCheckedTuning& operator=(const CCheckedTuning&) = delete;

    const std::vector<CheckedLine>& lines() const { return lines_; }
    // In the order of their lines.
    const std::vector<CheckedItem>& items() const { return items_; }
    const CheckedItem* Find(std::string_view key) const;
    const std::vector<CheckedText>& texts() const { return texts_; }
    const std::vector<DirectiveUse>& directives() const { return directives_; }
    // What a run reads.
    const CBrindleOpts& options() const { return options_; }

    // By prefix. The prefix of a key that no run makes (`T07_`) is there too, with neither of the uses.
    const std::map<std::string, CheckedTool, std::less<>>& tools() const { return tools_; }
    const CheckedTool* Tool(std::string_view prefix) const;
    const ToolAbilities& abilities() const { return abilities_; }

private:
    void FindItems();
    void FindTexts();
    void FindTools();
    void FindAbilities();
    bool HasBareSpeed(std::string_view prefix) const;

    std::vector<CheckedLine> lines_;
    std::vector<CheckedItem> items_;
    std::unordered_map<std::string_view, size_t> item_of_key_;
    std::vector<CheckedText> texts_;
    std::vector<DirectiveUse> directives_;
    std::map<std::string, CheckedTool, std::less<>> tools_;
    ToolAbilities abilities_;
    CBrindleOpts options_;
};

// The kind that a line with this first word stores; nothing if it is no type word.
std::optional<KeyKind> KindOfType(std::string_view type);

// Whether `line` is one of the run-time data lines, by its first word.
bool IsRunTimeDataLine(const CheckedLine& line);

// Adds a finding at a word of a line.
void AddAtWord(CFindings& findings, Severity severity, const CheckedLine& line, std::string_view word,
               std::string text);

// Adds a finding at the key of an item.
void AddAtKey(CFindings& findings, Severity severity, const CheckedItem& item, std::string text);

}  // namespace brindle
