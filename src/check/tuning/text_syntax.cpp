#include <algorithm>
#include <optional>
#include <vector>

#include "check/tuning/checks.h"
#include "check/tuning/decimals.h"
#include "check/tuning/nearest_name.h"
#include "check/tuning/run_time_words.h"
#include "language/keywords.h"
#include "text/ascii.h"
#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle {
namespace {

using Kind = TemplatePiece::Kind;

// Two keywords of which one has no effect beside the other.
struct Contradiction {
    Keyword a, b;
    std::string_view text;
};

constexpr Contradiction kContradictions[] = {
    {Keyword::kWord, Keyword::kData, "WORD and DATA are both there: WORD counts"},
    {Keyword::kAbs, Keyword::kInc, "ABS and INC are both there: INC counts"},
    {Keyword::kModal, Keyword::kNonModal, "MODAL and NONMODAL are both there: MODAL counts"},
    {Keyword::kA1, Keyword::kA2, "A1 and A2 are both there: each leaves out the other, and nothing is written"},
    {Keyword::kCos, Keyword::kSin, "COS and SIN are both there: COS counts"},
    {Keyword::kNormal, Keyword::kSpecial, "NORMAL and SPECIAL are both there: SPECIAL counts"},
};

const KeywordInfo* FindKeyword(std::string_view name) {
    for (const KeywordInfo& info : KeywordTable()) {
        if (EqualNoCase(info.name, name)) return &info;
    }
    return nullptr;
}

// One keyword of an argument list, with the value in parentheses after it.
struct Argument {
    std::string_view name;
    std::optional<std::string_view> value;  // nothing without a parenthesis
    bool is_closed = true;                  // the parenthesis is
};

// Cuts the arguments after a `[` as people write them: names, each perhaps with a value.
std::vector<Argument> CutArguments(std::string_view text) {
    constexpr std::string_view kSeparators = " ,])";
    std::vector<Argument> arguments;
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(kSeparators), text.size()));
        if (text.empty()) return arguments;
        const size_t end = std::min(text.find_first_of(" ,])("), text.size());
        Argument argument{text.substr(0, end), std::nullopt};
        text.remove_prefix(end);
        if (text.starts_with('(')) {
            const size_t close = text.find(')');
            argument.is_closed = close != text.npos;
            argument.value = text.substr(1, std::min(close, text.size()) - 1);
            text.remove_prefix(std::min(close, text.size()));
        }
        arguments.push_back(argument);
    }
}

// A directive with its arguments as a run parses them.
struct ParsedDirective {
    const DirectiveInfo& info;
    CAtDirKeywords keywords;
    KeywordSet known = {};  // keywords that it looks at, as far as they have been looked at here
};

// Looks at the words of one text.
class SyntaxChecker {
public:
    SyntaxChecker(const CPlacedTuning& tuning, const PlacedText& text, CDiagnostics& diagnostics)
        : tuning_(tuning), text_(text), diagnostics_(diagnostics) {}

    void Check() {
        for (const PlacedPiece& piece : text_.pieces) {
            at_ = piece.at;
            if (piece.piece.kind == Kind::kFixed) CheckFixed(piece);
            if (piece.piece.kind == Kind::kFixed) CheckCharacters(piece.piece.text, &piece == &text_.pieces.back());
            if (piece.piece.kind == Kind::kDirective && CheckEnds(piece)) CheckDirective(piece.piece.text);
            if (piece.piece.kind == Kind::kRunValue && CheckEnds(piece)) CheckRunValue(piece.piece.text);
        }
    }

private:
    // Adds a finding at a part of the present piece.
    void Add(Rule rule, size_t at, size_t length, std::string message, std::string way_out = {}) {
        diagnostics_.Add(rule, text_.word.PlaceOf(at_ + at, length), std::move(message), std::move(way_out));
    }

    // False if the piece is not the one word that it was meant to be.
    bool CheckEnds(const PlacedPiece& piece) {
        const std::string& text = piece.piece.text;
        const size_t inner = text.find('<', 1);
        if (inner != std::string::npos) {
            Add(Rule::kUnclosedWord, 0, inner, "a > is missing: the word goes on to the next one");
            return false;
        }
        if (piece.opened && !piece.closed)
            Add(Rule::kUnclosedWord, 0, text.size(), "a > is missing: the word goes on to the end of the line");
        return true;
    }

    // Fixed text that looks like a word.
    void CheckFixed(const PlacedPiece& piece) {
        const std::string_view text = piece.piece.text;
        if (piece.opened && text.starts_with("RTD")) {
            return Add(Rule::kWordAsText, 0, text.size(),
                       "this is fixed text: a run-time data word is written RTD(row,column) or RTD(message)");
        }
        for (size_t open = text.find('<'); open != text.npos; open = text.find('<', open + 1)) {
            const size_t end = text.find_first_of(">[<", open + 1);
            if (end == text.npos) return;
            const std::string_view name = text.substr(open + 1, end - open - 1);
            if (name.empty() || name.size() > kLongestName || FindDirective(std::string("@").append(name)) == nullptr)
                continue;
            Add(Rule::kWordAsText, open, end - open,
                "this is fixed text: a directive is written <@" + std::string(name) + ">");
        }
    }

    // The codes of characters in fixed text. A word that follows, unless the text is the last piece, may bring the rest
    // of one.
    void CheckCharacters(std::string_view text, bool is_last) {
        constexpr std::string_view kOpening = "chr(";
        for (size_t at = text.find(kOpening); at != text.npos;) {
            const size_t number = at + kOpening.size();
            const size_t close = text.find(')', number);
            if (close == text.npos) {
                if (is_last)
                    Add(Rule::kUnclosedCharacter, at, text.size() - at,
                        "a ) is missing: a character is written chr(n)");
                return;
            }
            CheckCharacter(at, text.substr(number, close - number));
            at = text.find(kOpening, close);
        }
    }

    void CheckCharacter(size_t at, std::string_view code) {
        const size_t length = code.size() + 5;
        const size_t first = std::min(code.find_first_not_of(' '), code.size());  // the writer of codes skips blanks
        const std::optional<double> number = ParseNumber(code.substr(first));
        const int32_t read = LeadingInt(code);
        const std::string counts = " it counts as " + std::to_string(read & 0xFF);
        if (!number || *number != read) {
            Add(Rule::kBadCharacter, at, length, Quoted(code) + " is no code of a character:" + counts);
        } else if (read < 0 || read > 255) {
            Add(Rule::kCharacterRange, at, length, "the codes of characters go from 0 to 255:" + counts);
        }
    }

    void CheckDirective(std::string_view text) {
        const size_t bracket = text.find('[');
        const std::string_view name = text.substr(0, bracket);
        const DirectiveInfo* const directive = FindDirective(name);
        if (directive == nullptr) return WarnOfUnknown(name);
        if (bracket == text.npos || directive->id == DirectiveId::kIODwell) return;
        const std::string_view arguments = text.substr(bracket + 1);
        if (arguments.find(']') == arguments.npos) WarnOfOpenBracket(bracket, text);
        std::string to_parse(text);
        ParsedDirective parsed{*directive, CAtDirKeywords(to_parse)};
        for (const Argument& argument : CutArguments(arguments)) {
            CheckArgument(argument, static_cast<size_t>(argument.name.data() - text.data()), parsed);
        }
        for (const Contradiction& contradiction : kContradictions) {
            const bool has_both = parsed.known.Has(contradiction.a) && parsed.known.Has(contradiction.b);
            if (has_both) Add(Rule::kContradiction, bracket, text.size() - bracket, std::string(contradiction.text));
        }
    }

    void WarnOfUnknown(std::string_view name) {
        const std::string_view trimmed = name.substr(0, name.find_last_not_of(' ') + 1);
        if (FindDirective(trimmed) != nullptr) {
            return Add(Rule::kUnknownDirective, 0, name.size(),
                       "unknown directive " + Quoted(name) + ": no blank may follow the name");
        }
        Add(Rule::kUnknownDirective, 0, name.size(), "unknown directive " + Quoted(name),
            DidYouMean(NearestDirective(trimmed)));
    }

    // Without the `]` no separator follows the last keyword, unless it ends in one.
    void WarnOfOpenBracket(size_t bracket, std::string_view text) {
        const bool is_found = std::string_view(" ,()").find(text.back()) != std::string_view::npos;
        Add(Rule::kUnclosedArguments, bracket, text.size() - bracket,
            is_found ? "a ] is missing" : "a ] is missing: the last keyword is not found");
    }

    void CheckArgument(const Argument& argument, size_t at, ParsedDirective& directive) {
        const std::string_view name = argument.name;
        const KeywordInfo* const info = FindKeyword(name);
        if (info == nullptr) {
            return Add(Rule::kUnknownKeyword, at, std::max<size_t>(name.size(), 1), "unknown keyword " + Quoted(name),
                       DidYouMean(NearestKeyword(name)));
        }
        if (!directive.info.keywords.Has(info->keyword)) {
            return Add(Rule::kIgnoredKeyword, at, name.size(),
                       std::string(directive.info.name) + " ignores " + std::string(info->name));
        }
        directive.known.Add(info->keyword);
        if (info->TakesValue()) return CheckValue(argument, at, *info, directive.keywords);
        if (argument.value) Add(Rule::kExtraKeywordValue, at, name.size(), std::string(info->name) + " takes no value");
    }

    // A value is what comes before the next `)`, even if that belongs to another keyword.
    void WarnOfNoValue(size_t at, const KeywordInfo& info, const CAtDirKeywords& keywords) {
        std::string text = std::string(info.name) + " has no value: it is written " + std::string(info.form);
        if (const auto value = keywords.ValueOf(info.keyword)) text += "; here it counts as " + ShortNumber(*value);
        Add(Rule::kNoKeywordValue, at, info.name.size(), std::move(text));
    }

    void CheckValue(const Argument& argument, size_t at, const KeywordInfo& info, const CAtDirKeywords& keywords) {
        const std::string name(info.name);
        if (!argument.value) return WarnOfNoValue(at, info, keywords);
        if (!argument.is_closed)
            return Add(Rule::kUnclosedValue, at, name.size(), "a ) is missing: the value of " + name + " is not read");
        std::string_view value = *argument.value;
        value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
        value = value.substr(0, value.find_last_not_of(' ') + 1);
        const size_t length = name.size() + argument.value->size() + 2;
        const std::optional<double> number = ParseNumber(value);
        const double read = keywords.ValueOf(info.keyword).value_or(0.0);
        if (!number || *number != read) {
            return Add(Rule::kBadKeywordValue, at, length,
                       Quoted(value) + " is not read as written: it counts as " + ShortNumber(read));
        }
        const std::string fault = info.keyword == Keyword::kNDec ? FaultOfDecimals(read) : std::string();
        if (!fault.empty()) Add(Rule::kBadDecimals, at, length, fault);
    }

    void CheckRunValue(const std::string& word) {
        CheckRunTimeValue(word, tuning_.options().definition(), text_.word.PlaceOf(at_, word.size()), diagnostics_);
    }

    static constexpr size_t kLongestName = 40;

    const CPlacedTuning& tuning_;
    const PlacedText& text_;
    CDiagnostics& diagnostics_;
    size_t at_ = 0;  // of the present piece in the text
};

}  // namespace

void CheckTextSyntax(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    for (const PlacedText& text : tuning.texts()) SyntaxChecker(tuning, text, diagnostics).Check();
}

}  // namespace brindle
