#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <unordered_map>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "text/message_words.h"
#include "text/numbers.h"
#include "text/words.h"

namespace brindle {
namespace {

using Kind = TemplatePiece::Kind;

constexpr KeyRef kSpeeds[2][5] = {
    {Key("Speed_P1_sV1"), Key("Speed_P1_sV2"), Key("Speed_P1_sV3"), Key("Speed_P1_sV4"), Key("Speed_sForArcs_P1")},
    {Key("Speed_P2_sV1"), Key("Speed_P2_sV2"), Key("Speed_P2_sV3"), Key("Speed_P2_sV4"), Key("Speed_sForArcs_P2")},
};
constexpr KeyRef kFactor = Key("Speed_sFactor");

bool IsSpeed(const KeyInfo& info) {
    const auto is = [&info](KeyRef key) { return &key.Info() == &info; };
    return std::any_of(std::begin(kSpeeds[0]), std::end(kSpeeds[0]), is) ||
           std::any_of(std::begin(kSpeeds[1]), std::end(kSpeeds[1]), is);
}

// A word of the tuning that a run takes for a number.
struct NumberWord {
    const PlacedLine* line = nullptr;
    std::string_view word;
    std::string text;
};

std::string_view WithoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

class SpeedChecker {
public:
    SpeedChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), options_(tuning.options()), diagnostics_(diagnostics) {
        FindUsedKeys();
    }

    void Check() {
        if (used_keys_.empty()) return;
        FindRunValues();
        for (const PlacedText& text : tuning_.texts()) CheckText(text);
        CheckSecondParameter();
        CheckToolsWithoutSpeed();
        CheckMissingSpeeds();
    }

private:
    // The options that the speed words of this tuning's templates read.
    void FindUsedKeys() {
        for (const DirectiveUse& use : tuning_.directives()) {
            if (use.directive->id != DirectiveId::kSpeedWords || !IsRead(tuning_, *use.text)) continue;
            for (const DirectiveRead& read : DirectiveReads()) {
                if (Applies(read, use, tuning_)) used_keys_.insert(read.key->name);
            }
        }
    }

    void FindRunValues() {
        for (const PlacedLine& line : tuning_.lines()) {
            if (line.Definition() != DefinitionLine::kValue) continue;
            const std::vector<std::string> words = SplitQuotedWords(line.text);
            if (words.size() < 5 || TextKindOfValue(words[2]).value_or(TextKind::kPlain) != TextKind::kPlain) continue;
            run_values_[words[3]].push_back({&line, line.Word(4), UnescapeWord(words[4])});
        }
    }

    void CheckText(const PlacedText& text) {
        const KeyInfo& info = *text.item->match.info;
        const bool is_factor = &info == &kFactor.Info();
        const bool is_number = is_factor || (IsSpeed(info) && options_.ReadBool(Key("Speed_bAsValue")));
        if (!is_number || !used_keys_.contains(info.name) || !IsRead(tuning_, text) || text.pieces.size() != 1) return;
        const TemplatePiece& piece = text.pieces[0].piece;
        const std::string_view word = text.item->line->words[2];
        if (piece.kind == Kind::kFixed) CheckNumber({text.item->line, word, piece.text}, is_factor);
        if (piece.kind != Kind::kRunValue || !reported_values_.insert(piece.text).second) return;
        const auto values = run_values_.find(piece.text);
        if (values == run_values_.end()) return;
        for (const NumberWord& value : values->second) CheckNumber(value, is_factor);
    }

    void CheckNumber(const NumberWord& number, bool is_factor) {
        if (number.text.empty()) return;
        const double read = LeadingDouble(number.text);
        const bool counts_as_one = is_factor && std::fabs(read) < SmallestFactor();
        const std::optional<double> whole = ParseNumber(WithoutBlanks(number.text));
        if (!whole || *whole != read) {
            std::string text = Quoted(number.text) + " is no number that can be read: as a ";
            text += is_factor ? "factor on speeds" : "speed";
            text += " it counts as " + ShortNumber(counts_as_one ? 1.0 : read);
            // Decimals of 4545 have no smallest step below which a speed is left out.
            if (!is_factor && read == 0.0 && SmallestFactor() > 0.0) text += ", which is not written";
            return diagnostics_.Add(Rule::kBadSpeed, number.line->PlaceOf(number.word), std::move(text));
        }
        if (!counts_as_one) return;
        diagnostics_.Add(Rule::kSmallSpeedFactor, number.line->PlaceOf(number.word),
                         "factors below " + ShortNumber(SmallestFactor()) + " count as 1: Speed_nNDec is " +
                             std::to_string(options_.ReadInt(Key("Speed_nNDec"))));
    }

    double SmallestFactor() const { return PowerOfTenth(options_.ReadInt(Key("Speed_nNDec"))); }

    bool HasSpeed(std::string_view prefix, int parameter) const {
        return std::any_of(std::begin(kSpeeds[parameter]), std::end(kSpeeds[parameter]),
                           [&](KeyRef key) { return !options_.ReadText(key, prefix).empty(); });
    }

    bool AnyToolHasSpeed(int parameter) const {
        return std::any_of(tuning_.tools().begin(), tuning_.tools().end(),
                           [&](const auto& tool) { return tool.second.own && HasSpeed(tool.first, parameter); });
    }

    void CheckSecondParameter() {
        const PlacedItem* const item = tuning_.Find(Key("Speed_b2Params")->name);
        if (item == nullptr || !used_keys_.contains(kSpeeds[1][0]->name) || !AnyToolHasSpeed(0) || AnyToolHasSpeed(1))
            return;
        diagnostics_.Add(Rule::kNoSecondSpeed, item->KeyPlace(),
                         "Speed_b2Params is true, but no tool in use has a speed of parameter 2");
    }

    // A controller keeps a speed until another one comes. A tool can bring it in the fixed text of its templates.
    void CheckToolsWithoutSpeed() {
        const std::string address = options_.ReadText(Key("Speed_sParam1Addr"));
        if (address.empty() || !used_keys_.contains(kSpeeds[0][0]->name) || !AnyToolHasSpeed(0)) return;
        std::set<std::string_view> with_templates, with_address;
        for (const PlacedText& text : tuning_.texts()) {
            if (!text.InTemplate() || text.item->match.tool_prefix.empty()) continue;
            with_templates.insert(text.item->match.tool_prefix);
            if (MayHoldSpeed(text, address)) with_address.insert(text.item->match.tool_prefix);
        }
        for (const auto& [prefix, tool] : tuning_.tools()) {
            const std::string physical = options_.ToolKeyPrefix(tool.number, true);
            const bool is_told_apart = with_address.contains(prefix) || with_address.contains(physical);
            if (!tool.own || tool.number < 1 || is_told_apart || HasSpeed(prefix, 0)) continue;
            if (!with_templates.contains(prefix) && !with_templates.contains(physical)) continue;
            diagnostics_.Add(
                Rule::kToolWithoutSpeed, tool.first->KeyPlace(),
                "tool " + std::to_string(tool.number) + " has no speed, other tools have: it goes at theirs");
        }
    }

    static bool MayHoldSpeed(const PlacedText& text, const std::string& address) {
        return std::any_of(text.pieces.begin(), text.pieces.end(), [&address](const PlacedPiece& placed) {
            return placed.piece.kind == Kind::kRunValue || placed.piece.text.find(address) != address.npos;
        });
    }

    // The speeds that a tool lacks although it has another one: those by direction, and that of arcs.
    void CheckMissingSpeeds() {
        if (!used_keys_.contains(kSpeeds[0][0]->name)) return;
        if (!AnyToolHasSpeed(0)) return CheckNoSpeed();
        const size_t values = options_.ReadBool(Key("Speed_b1")) ? 1 : options_.ReadBool(Key("Speed_b4")) ? 4 : 2;
        for (const auto& [prefix, tool] : tuning_.tools()) {
            if (!tool.own || !HasSpeed(prefix, 0)) continue;
            for (size_t i = 0; i < values; ++i) {
                CheckSpeed(
                    prefix, kSpeeds[0][i],
                    values == 1 ? "lines have no speed" : "cuts along one axis have no speed (Speed_b1 is false)");
            }
            if (!options_.ReadBool(Key("Speed_bSepForArcs"), options_.ToolKeyPrefix(tool.number, true))) continue;
            CheckSpeed(prefix, kSpeeds[0][4], "arcs have no speed (Speed_bSepForArcs is true)");
        }
    }

    void CheckSpeed(const std::string& prefix, KeyRef key, std::string_view effect) {
        if (!options_.ReadText(key, prefix).empty()) return;
        diagnostics_.Add(
            Rule::kMissingSpeed, tuning_.Tool(prefix)->first->KeyPlace(),
            prefix + std::string(key->name) + " is missing: " + std::string(effect) + " and go at the last one");
    }

    // None at all, unless fixed text has one.
    void CheckNoSpeed() {
        const std::string address = options_.ReadText(Key("Speed_sParam1Addr"));
        const bool may_be_text =
            std::any_of(tuning_.texts().begin(), tuning_.texts().end(),
                        [&](const PlacedText& text) { return text.InTemplate() && MayHoldSpeed(text, address); });
        if (address.empty() || may_be_text) return;
        for (const DirectiveUse& use : tuning_.directives()) {
            if (use.directive->id != DirectiveId::kSpeedWords || !IsRead(tuning_, *use.text)) continue;
            return diagnostics_.Add(Rule::kMissingSpeed, use.place,
                                    "@SpeedWords writes nothing: no tool in use has a speed");
        }
    }

    const CPlacedTuning& tuning_;
    const CBrindleOpts& options_;
    CDiagnostics& diagnostics_;
    std::set<std::string_view> used_keys_;
    std::unordered_map<std::string, std::vector<NumberWord>> run_values_;  // by their RTD words
    std::set<std::string> reported_values_;
};

}  // namespace

void CheckSpeeds(const CPlacedTuning& tuning, CDiagnostics& diagnostics) { SpeedChecker(tuning, diagnostics).Check(); }

}  // namespace brindle
