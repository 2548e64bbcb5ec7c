#include "check/drawing/misplaced_words.h"

#include <algorithm>

#include "cff2/cff2_record.h"
#include "text/message_words.h"

namespace brindle {
namespace {

using cff2::RecordType;

bool HasName(const RecordType& type) { return type.words[1] == 'n'; }

bool HasCommaAfter(const std::vector<std::string_view>& words, size_t at) {
    const char* const end = words[at].data() + words[at].size();
    const std::string_view gap(end, static_cast<size_t>(words[at + 1].data() - end));
    return gap.find(',') != std::string_view::npos;
}

// Whether the name goes on after a blank, as in `C,MY PART,10,10,0,0,0`. Where blanks separate all words, only their
// number says so.
bool IsNameCut(const RecordType& type, const std::vector<std::string_view>& words) {
    if (!HasName(type) || words.size() < 3 || HasCommaAfter(words, 1)) return false;
    return HasCommaAfter(words, 0) || words.size() > type.words.size();
}

// Coordinates of 12,5 read as two words, and leave no point in the line.
bool LooksLikeDecimalCommas(const RecordType& type, std::string_view line) {
    return !HasName(type) && line.find('.') == std::string_view::npos &&
           std::count(line.begin(), line.end(), ',') >= static_cast<ptrdiff_t>(type.words.size());
}

std::string TooManyWords(const RecordType& type, std::string_view line, size_t words) {
    return std::string(type.name) + " record with " + std::to_string(words) + " words where " +
           std::to_string(type.words.size()) +
           " belong: " + (LooksLikeDecimalCommas(type, line) ? "are there decimal commas?" : "the rest is not read");
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

bool CheckWordCount(size_t line, std::string_view text, const std::vector<std::string_view>& words,
                    CDiagnostics& diagnostics) {
    const RecordType& type = *cff2::FindRecordType(words[0]);
    if (type.TakesAnyWords()) return true;
    const bool closes_up = HasEmptyWord(text);
    if (closes_up)
        diagnostics.Add(Rule::kEmptyWord, {line}, std::string(kEmptyWord) + ": the words after them move up");
    if (IsNameCut(type, words)) {
        diagnostics.Add(Rule::kCutName, {line}, "a name ends at a blank: this one is " + Quoted(words[1]));
    } else if (words.size() > type.words.size()) {
        diagnostics.Add(Rule::kTooManyWords, {line}, TooManyWords(type, text, words.size()));
    } else {
        return !closes_up;
    }
    return false;
}

}  // namespace brindle
