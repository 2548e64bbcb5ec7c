#include "check/drawing/drawing_words.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/message_words.h"

namespace brindle {
namespace {

struct WordCount {
    std::string_view type;
    size_t most;
    bool has_name;  // word 1 is a name
};
constexpr WordCount kCounts[] = {
    {"MAIN", 2, true}, {"SUB", 2, true}, {"UR", 3, false}, {"C", 7, true},
    {"T", 9, false},   {"L", 10, false}, {"A", 13, false},
};

const WordCount* FindCount(std::string_view type) {
    const auto* const found = std::find_if(std::begin(kCounts), std::end(kCounts),
                                           [type](const WordCount& count) { return EqualNoCase(type, count.type); });
    return found == std::end(kCounts) ? nullptr : found;
}

bool HasCommaBehind(const std::vector<std::string_view>& words, size_t at) {
    const char* const end = words[at].data() + words[at].size();
    const std::string_view gap(end, static_cast<size_t>(words[at + 1].data() - end));
    return gap.find(',') != std::string_view::npos;
}

// Whether the name goes on behind a blank, as in `C,MY PART,10,10,0,0,0`. Where blanks separate all words, only their
// number tells.
bool IsNameCut(const WordCount& count, const std::vector<std::string_view>& words) {
    if (!count.has_name || words.size() < 3 || HasCommaBehind(words, 1)) return false;
    return HasCommaBehind(words, 0) || words.size() > count.most;
}

// Coordinates of 12,5 read as two words, and leave no point in the line.
bool LooksLikeDecimalCommas(const WordCount& count, std::string_view line) {
    return !count.has_name && line.find('.') == std::string_view::npos &&
           std::count(line.begin(), line.end(), ',') >= static_cast<ptrdiff_t>(count.most);
}

std::string TooManyWords(const WordCount& count, std::string_view line, size_t words) {
    return std::string(count.type) + " record with " + std::to_string(words) + " words where " +
           std::to_string(count.most) +
           " belong: " + (LooksLikeDecimalCommas(count, line) ? "are there decimal commas?" : "the rest is not read");
}

}  // namespace

bool HasEmptyWord(std::string_view line) {
    const size_t last = line.find_last_not_of(" \t,");
    if (last == std::string_view::npos) return false;
    bool after_comma = false;
    for (const char c : line.substr(0, last)) {
        if (c == ' ' || c == '\t') continue;
        if (c == ',' && after_comma) return true;
        after_comma = c == ',';
    }
    return false;
}

std::vector<std::string> FindMisplacedWords(std::string_view line, const std::vector<std::string_view>& words) {
    std::vector<std::string> faults;
    const WordCount* const count = FindCount(words[0]);
    if (count == nullptr) return faults;
    if (HasEmptyWord(line)) faults.push_back(std::string(kEmptyWord) + ": the words behind them move up");
    if (IsNameCut(*count, words)) {
        faults.push_back("a name ends at a blank: this one is " + Quoted(words[1]));
    } else if (words.size() > count->most) {
        faults.push_back(TooManyWords(*count, line, words.size()));
    }
    return faults;
}

}  // namespace brindle
