#include "language/keywords.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/numbers.h"
#include "text/words.h"

namespace brindle {
namespace {

constexpr KeywordInfo kKeywords[kKeywordCount] = {
    {Keyword::kA1, 20501, "A1", "A1", "axis 1 alone: axis 2 is left out"},
    {Keyword::kA2, 20502, "A2", "A2", "axis 2 alone: axis 1 is left out"},
    {Keyword::kWord, 20504, "WORD", "WORD", "with the address"},
    {Keyword::kData, 20505, "DATA", "DATA", "without the address, unless WORD is there too"},
    {Keyword::kAbs, 20506, "ABS", "ABS", "absolute; in a radius word, without its sign"},
    {Keyword::kInc, 20507, "INC", "INC", "incremental, also if ABS is there too"},
    {Keyword::kModal, 20508, "MODAL", "MODAL", "a word that repeats the last one is left out"},
    {Keyword::kNonModal, 20509, "NONMODAL", "NONMODAL", "always written, unless MODAL is there too"},
    {Keyword::kIncBy, 20510, "INCBY", "INCBY(n)", "increment by a whole number"},
    {Keyword::kSetTo, 20511, "SETTO", "SETTO(v)", "set to a value"},
    {Keyword::kNormal, 20512, "NORMAL", "NORMAL", "block numbers rise by the normal increment"},
    {Keyword::kSpecial, 20513, "SPECIAL", "SPECIAL", "block numbers rise by the special increment"},
    {Keyword::kMoveTo, 20514, "MOVETO", "MOVETO", "the point becomes the reference of incremental words"},
    {Keyword::kNDec, 20516, "NDEC", "NDEC(n)", "number of decimals; 4545 writes whole numbers without a point"},
    {Keyword::kFactor, 20517, "FACTOR", "FACTOR(r)", "factor on the value"},
    {Keyword::kCos, 20518, "COS", "COS", "the cosine of the angle"},
    {Keyword::kSin, 20519, "SIN", "SIN", "the sine of the angle, unless COS is there too"},
    {Keyword::kRadial, 20520, "RADIAL", "RADIAL", "the direction from the arc's centre"},
    {Keyword::kSilent, 20521, "SILENT", "SILENT", "counts as written, but writes nothing"},
};

constexpr std::string_view NameOf(Keyword keyword) { return kKeywords[static_cast<size_t>(keyword)].name; }

}  // namespace

std::span<const KeywordInfo> KeywordTable() { return kKeywords; }

CAtDirKeywords::CAtDirKeywords(std::string& directive) {
    const size_t bracket = directive.find('[');
    if (bracket == std::string::npos) return;
    value_text_ = ' ' + UpperCase(std::string_view(directive).substr(bracket + 1));
    std::replace_if(
        value_text_.begin(), value_text_.end(), [](char c) { return c == ',' || c == ']'; }, ' ');
    directive.resize(bracket);

    const std::string word_text = this->word_text();
    for (const KeywordInfo& info : kKeywords) {
        const std::string word = ' ' + std::string(info.name) + ' ';
        if (word_text.find(word) != std::string::npos) words_.Add(info.keyword);
    }
    if (const auto text = ValueTextOf(Keyword::kNDec)) n_dec_ = LeadingInt(*text);
    if (const auto text = ValueTextOf(Keyword::kIncBy)) inc_by_ = LeadingInt(*text);
    if (const auto text = ValueTextOf(Keyword::kFactor)) factor_ = LeadingDouble(*text);
    if (const auto text = ValueTextOf(Keyword::kSetTo)) set_to_ = LeadingDouble(*text);
}

std::string CAtDirKeywords::word_text() const {
    std::string text = value_text_;
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '(' || c == ')'; }, ' ');
    return text;
}

std::optional<std::string> CAtDirKeywords::ValueTextOf(Keyword keyword) const {
    const size_t at = value_text_.find(NameOf(keyword));
    if (at == std::string::npos) return std::nullopt;
    const size_t close = value_text_.find(')', at);
    if (close == std::string::npos) return std::nullopt;
    const size_t number = at + NameOf(keyword).size() + 1;
    return number < close ? value_text_.substr(number, close - number) : std::string();
}

std::optional<double> CAtDirKeywords::ValueOf(Keyword keyword) const {
    switch (keyword) {
        case Keyword::kNDec: return n_dec_;
        case Keyword::kIncBy: return inc_by_;
        case Keyword::kFactor: return factor_;
        case Keyword::kSetTo: return set_to_;
        default: return std::nullopt;
    }
}

bool CAtDirKeywords::WantAddress(bool by_default) const {
    if (HasWord(Keyword::kWord)) return true;
    return !HasWord(Keyword::kData) && by_default;
}

bool CAtDirKeywords::WantModal(bool by_default) const {
    if (HasWord(Keyword::kModal)) return true;
    return !HasWord(Keyword::kNonModal) && by_default;
}

bool CAtDirKeywords::WantAbsolute(bool by_default) const {
    if (HasWord(Keyword::kInc)) return false;
    return HasWord(Keyword::kAbs) || by_default;
}

}  // namespace brindle
