// A tuning as the checks look at it: its lines cut into words that keep their places, the items that they come
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

#include "check/diagnostics.h"
#include "check/tuning/placed_pieces.h"
#include "language/directives.h"
#include "tuning/options.h"

namespace brindle {

// A line of the file; its words are what is between blanks and tabs. One that holds a NUL byte can't be handed to
// the library and has no words.
struct PlacedLine {
    size_t number = 0;  // from 1
    std::string_view text;
    std::vector<std::string_view> words;

    // The word of that index, or the last one if the line has fewer; empty for a line without words.
    std::string_view Word(size_t index) const;
    Place PlaceOf(std::string_view word) const {
        return {number, static_cast<size_t>(word.data() - text.data()) + 1, word.size()};
    }
    // What a run-time data line says; nothing for any other line.
    std::optional<DefinitionLine> Definition() const { return DefinitionLineOf(Word(0)); }
    bool HasTabBefore(std::string_view word) const { return word.data() > text.data() && word.data()[-1] == '\t'; }
};

// A word of a line without its escapes. Knows where each byte of the text is in the line.
class PlacedWord {
public:
    PlacedWord(const PlacedLine& line, std::string_view word);
    std::string_view text() const { return text_; }
    // The place of a part of the text.
    Place PlaceOf(size_t at, size_t length) const;

private:
    size_t OriginOf(size_t at) const { return origins_[std::min(at, origins_.size() - 1)]; }

    std::vector<size_t> origins_;  // in the word as written: one for each byte of the text, and one after them
    std::string text_;
    Place place_;  // of the word as written
};

// A line that is in force: it stores an item, and no later line stores one under its key.
struct PlacedItem {
    const PlacedLine* line = nullptr;
    std::string_view key;
    KeyMatch match;  // without info if the key is unknown

    Place KeyPlace() const { return line->PlaceOf(key); }
    // The key is known and the line stores the kind that is read under it.
    bool HasRightKind() const;
};

// A line of a template, up to its comment, or the text of an option. Only known keys of the right kind have texts.
struct PlacedText {
    const PlacedItem* item = nullptr;
    PlacedWord word;
    std::vector<PlacedPiece> pieces;

    bool InTemplate() const { return item->match.event != nullptr; }
};

// A known directive in a text.
struct DirectiveUse {
    const DirectiveInfo* directive = nullptr;
    KeywordSet keywords;
    const PlacedText* text = nullptr;
    Place place;       // of its name
    size_t piece = 0;  // its index in the text
};

// A tool prefix that the tuning has.
struct ToolUse {
    int32_t number = 0;                 // -1 for the default tool
    bool own = false;                   // a record can ask for it: its speeds and templates are read
    bool physical = false;              // all but its speeds is read
    const PlacedItem* first = nullptr;  // the first of its keys
    int keys = 0;
};

// What at least one of the tools that a run can reach is or does.
struct ToolAbilities {
    bool any = false;  // there is one
    bool tangential = false;
    bool fly = false;
    bool small_radii = false;  // slows down for them
    bool bare_speeds = false;  // has a speed that begins with a digit, so that it holds no address
};

class CPlacedTuning {
public:
    // `lines` are those of a file, without their ends; what they point to must outlive the object.
    explicit CPlacedTuning(std::span<const std::string_view> lines);
    CPlacedTuning(const CPlacedTuning&) = delete;
    CPlacedTuning& operator=(const CPlacedTuning&) = delete;

    const std::vector<PlacedLine>& lines() const { return lines_; }
    // In the order of their lines.
    const std::vector<PlacedItem>& items() const { return items_; }
    const PlacedItem* Find(std::string_view key) const;
    const std::vector<PlacedText>& texts() const { return texts_; }
    const std::vector<DirectiveUse>& directives() const { return directives_; }
    // What a run reads.
    const CBrindleOpts& options() const { return options_; }

    // By prefix. The prefix of a key that no run makes (`T07_`) is there too, with neither of the uses.
    const std::map<std::string, ToolUse, std::less<>>& tools() const { return tools_; }
    const ToolUse* Tool(std::string_view prefix) const;
    const ToolAbilities& abilities() const { return abilities_; }

private:
    void FindItems();
    void FindTexts();
    void FindTools();
    void FindAbilities();
    bool HasBareSpeed(std::string_view prefix) const;

    std::vector<PlacedLine> lines_;
    std::vector<PlacedItem> items_;
    std::unordered_map<std::string_view, size_t> item_of_key_;
    std::vector<PlacedText> texts_;
    std::vector<DirectiveUse> directives_;
    std::map<std::string, ToolUse, std::less<>> tools_;
    ToolAbilities abilities_;
    CBrindleOpts options_;
};

}  // namespace brindle
