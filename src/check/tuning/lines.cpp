#include <algorithm>
#include <optional>
#include <set>
#include <unordered_map>

#include "check/tuning/checks.h"
#include "check/tuning/nearest_name.h"
#include "platform/text_encoding.h"
#include "text/ascii.h"
#include "text/message_words.h"
#include "text/nearest_name.h"
#include "text/numbers.h"
#include "tuning/type_words.h"

namespace brindle {
namespace {

// Looking for a near key takes a walk through the catalogue; rubbish in place of a tuning would take millions.
constexpr int kMostSuggestions = 200;

std::string NearestType(std::string_view word) {
    CNearestName nearest(word);
    for (const TypeWordInfo& info : kTypeWords) nearest.Offer(info.word);
    for (const std::string_view first_word : kDefinitionWords) nearest.Offer(first_word);
    return nearest.best();
}

bool LooksLikeComment(std::string_view word) {
    return word.starts_with('!') || word.starts_with('#') || word.starts_with(';') || word.starts_with("//");
}

std::string NearestNWord(std::string_view word) {
    constexpr std::string_view kNWords[] = {"NNUL", "NBIG", "NSM", "NINIT"};
    return NearestName(word, kNWords);
}

// The first byte that is part of no UTF-8 character, npos if there is none.
size_t FirstStrayByte(std::string_view text) {
    size_t at = 0;
    for (const wchar_t c : NarrowToWide(text)) {
        const wchar_t one[] = {c, L'\0'};
        if (c >= 0x80 && c <= 0xFF && !text.substr(at).starts_with(WideToNarrow(one))) return at;
        at += c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
    }
    return std::string_view::npos;
}

// Words that say what is read from them.
bool SaysNo(std::string_view value) {
    constexpr std::string_view kNo[] = {"no", "n", "off", "f", "0"};
    return std::any_of(std::begin(kNo), std::end(kNo), [value](std::string_view no) { return EqualNoCase(value, no); });
}

// The number of a `10mm` whose key wants millimetres; empty for any other value.
std::string WithoutMillimetres(std::string_view key, std::string_view value) {
    if (!value.ends_with("mm") || key.find("MM") == std::string_view::npos) return {};
    const std::string_view number = value.substr(0, value.size() - 2);
    return ParseNumber(number) ? std::string(number) : std::string();
}

class LineChecker {
public:
    LineChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics) : tuning_(tuning), diagnostics_(diagnostics) {
        FindDoubled();
    }

    void Check(const PlacedLine& line) {
        if (line.text.empty() || !CheckBytes(line) || line.words.empty()) return;
        const TypeWordInfo* const type = FindTypeWord(line.words[0]);
        if (line.Definition()) {
            if (line.words.size() < 2) {
                Add(Rule::kDroppedLine, line, line.words[0], "the line is dropped: it has one word only");
            }
        } else if (type == nullptr) {
            CheckUnknownType(line);
        } else if (line.words.size() < 3) {
            CheckShort(line, type->kind);
        } else if (CheckKey(line, type->kind)) {
            CheckValue(line, *type);
        }
    }

private:
    void Add(Rule rule, const PlacedLine& line, std::string_view word, std::string message, std::string way_out = {}) {
        diagnostics_.Add(rule, line.PlaceOf(word), std::move(message), std::move(way_out));
    }
    // One whose word can be put right: `right` takes its place; empty if it can't.
    void AddMendable(Rule rule, const PlacedLine& line, std::string_view word, std::string message, std::string way_out,
                     const std::string& right) {
        Diagnostic diagnostic{
            .rule = rule, .place = line.PlaceOf(word), .message = std::move(message), .way_out = std::move(way_out)};
        if (!right.empty()) diagnostic.mend = Edit{diagnostic.place, right};
        diagnostics_.Add(std::move(diagnostic));
    }

    // Keys of which all lines say the same.
    void FindDoubled() {
        std::unordered_map<std::string_view, const PlacedLine*> first;
        for (const PlacedLine& line : tuning_.lines()) {
            if (line.words.size() < 3 || line.Definition() || FindTypeWord(line.words[0]) == nullptr) continue;
            const auto [known, is_new] = first.emplace(line.words[1], &line);
            const bool is_same = known->second->words == line.words;
            if (is_new) {
                doubled_[line.words[1]] = true;
            } else if (!is_same) {
                doubled_[line.words[1]] = false;
            }
        }
    }

    // False for a line that can't be handed to the library.
    bool CheckBytes(const PlacedLine& line) {
        const size_t nul = line.text.find('\0');
        if (nul != std::string_view::npos) {
            Add(Rule::kNulByte, line, line.text.substr(nul, 1), "a NUL byte: the line can't be read");
            return false;
        }
        const size_t stray = FirstStrayByte(line.text);
        if (stray != std::string_view::npos) {
            Add(Rule::kNotUtf8, line, line.text.substr(stray, 1),
                "a byte that is no UTF-8: it counts as the character of its code");
        }
        return true;
    }

    void CheckUnknownType(const PlacedLine& line) {
        const std::string_view word = line.words[0];
        if (LooksLikeComment(word))
            return Add(Rule::kComment, line, word, "the line is dropped: a tuning has no comments");
        Add(Rule::kUnknownType, line, word, "unknown type word " + Quoted(word) + ": the line is dropped",
            DidYouMean(NearestType(word)));
    }

    // The writer gives a template without lines as two words.
    void CheckShort(const PlacedLine& line, KeyKind kind) {
        const std::string_view last = line.words.back();
        if (kind == KeyKind::kTemplate && line.words.size() == 2) {
            return Add(Rule::kEmptyTemplate, line, last, "a template without lines: the line has no effect");
        }
        const bool lacks_text = kind == KeyKind::kText && line.words.size() == 2;
        Add(Rule::kDroppedLine, line, last, "the line is dropped: it needs three words, a type, a key and a value",
            lacks_text ? "an empty text is written !#EMPTY#!" : "");
    }

    // False if the value need not be looked at.
    bool CheckKey(const PlacedLine& line, KeyKind kind) {
        const std::string_view key = line.words[1];
        const PlacedItem& item = *tuning_.Find(key);
        const auto [first, is_new] = first_line_.emplace(key, line.number);
        if (!is_new) {
            Diagnostic diagnostic{.rule = Rule::kRepeatedKey,
                                  .place = line.PlaceOf(key),
                                  .message = Quoted(key) + " is in line " + std::to_string(first->second) +
                                             " already; line " + std::to_string(item.line->number) + " counts"};
            diagnostic.related.push_back({{}, {first->second}, {}, "the first line", true});
            if (doubled_[key]) diagnostic.mend = Edit{{line.number}, {}};
            diagnostics_.Add(std::move(diagnostic));
        }
        const KeyInfo* const info = item.match.info;
        if (info == nullptr) {
            if (is_new) WarnOfUnknownKey(line, key, kind);
            return true;
        }
        if (info->kind == kind) return true;
        Add(Rule::kWrongType, line, line.words[0],
            std::string(key) + " is read as " + std::string(TypeWord(info->kind)) + ", not as " +
                std::string(line.words[0]) + ": the key counts as absent");
        return false;
    }

    void WarnOfUnknownKey(const PlacedLine& line, std::string_view key, KeyKind kind) {
        const bool may_search = suggestions_++ < kMostSuggestions;
        const std::string nearest = may_search ? IntendedKey(key) : std::string();
        const std::string right = may_search ? MendedKey(key, kind) : std::string();
        AddMendable(Rule::kUnknownKey, line, key, "unknown key " + Quoted(key), DidYouMean(nearest), right);
    }

    // The key that is meant beyond doubt: it has no line of its own, and the line has its type. A key with lines that
    // say different things is left to the user.
    std::string MendedKey(std::string_view key, KeyKind kind) {
        std::string right = OnlyKeyNear(key);
        const KeyInfo* const info = MatchKey(right).info;
        if (info == nullptr || info->kind != kind || tuning_.Find(right) != nullptr || !doubled_[key]) return {};
        return mended_.insert(right).second ? right : std::string();
    }

    void CheckValue(const PlacedLine& line, const TypeWordInfo& type) {
        const KeyKind kind = type.kind;
        const std::string_view value = line.words[2];
        if (kind == KeyKind::kTemplate) return CheckTemplate(line);
        if (line.words.size() > 3) WarnOfFurtherWords(line, kind);
        if (kind == KeyKind::kBool && !EqualNoCase(value, "true") && !EqualNoCase(value, "false")) {
            AddMendable(Rule::kBadBool, line, value, Quoted(value) + " is neither true nor false: it counts as false",
                        {}, SaysNo(value) ? "false" : "");
        }
        if (kind == KeyKind::kInt || kind == KeyKind::kReal) CheckNumber(line, kind, value);
        if (type.text_kind != TextKind::kPlain) {
            Add(Rule::kMisplacedExpression, line, line.words[0],
                "expressions are computed in DSD lines only; here the text is taken as it is");
        }
    }

    void WarnOfFurtherWords(const PlacedLine& line, KeyKind kind) {
        const std::string_view next = line.words[3];
        if (kind != KeyKind::kText) return Add(Rule::kExtraWords, line, next, "words after the value are ignored");
        Add(Rule::kCutText, line, next,
            line.HasTabBefore(next) ? "a tab ends the text: what follows is ignored"
                                    : "a blank ends the text: within it a blank is written !#SP#!");
    }

    void CheckNumber(const PlacedLine& line, KeyKind kind, std::string_view value) {
        const std::optional<double> number = ParseNumber(value);
        const double read = LeadingDouble(value);
        if (!number) {
            return AddMendable(Rule::kBadNumber, line, value,
                               Quoted(value) + " is no number that can be read: it counts as " + ShortNumber(read), {},
                               WithoutMillimetres(line.words[1], value));
        }
        if (kind != KeyKind::kInt || *number == TruncateToInt32(*number)) return;
        Add(Rule::kNotWhole, line, value,
            Quoted(value) + " is no whole number of 32 bits: it counts as " + std::to_string(TruncateToInt32(*number)));
    }

    // N words and texts follow the key in pairs; one wrong word shifts all after it, so only the first is reported.
    void CheckTemplate(const PlacedLine& line) {
        CNWordInfo n_word;
        size_t i = 2;
        while (i < line.words.size() && ParseNWord(line.words[i], n_word)) i += 2;
        if (i < line.words.size()) {
            const std::string dropped =
                i + 1 < line.words.size() ? "it and the text after it are dropped" : "it is dropped";
            const std::string nearest = NearestNWord(line.words[i]);
            Add(Rule::kBadNWord, line, line.words[i],
                Quoted(line.words[i]) + " is no N word (NNUL, NBIG, NSM, NINITn): " + dropped +
                    (nearest.empty() ? HintForNWord(line, i) : ""),
                DidYouMean(nearest));
        } else if (i > line.words.size()) {
            Add(Rule::kMissingText, line, line.words.back(),
                Quoted(line.words.back()) + " is dropped: no text follows it", "an empty one is written !#EMPTY#!");
        }
    }

    // Why another word is where an N word belongs.
    static std::string HintForNWord(const PlacedLine& line, size_t at) {
        const std::string_view word = line.words[at];
        if (at == 2) return "; NNUL is missing before the first text";
        return line.HasTabBefore(word) ? "; a tab ends a text" : "; within a text a blank is written !#SP#!";
    }

    const CPlacedTuning& tuning_;
    CDiagnostics& diagnostics_;
    std::unordered_map<std::string_view, size_t> first_line_;
    std::unordered_map<std::string_view, bool> doubled_;  // by key: all of its lines say the same
    std::set<std::string> mended_;                        // keys that mends have made
    int suggestions_ = 0;
};

}  // namespace

void CheckLines(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    LineChecker checker(tuning, diagnostics);
    for (const PlacedLine& line : tuning.lines()) checker.Check(line);
}

}  // namespace brindle
