#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <unordered_map>

#include "check/number_words.h"
#include "check/tuning/check.h"
#include "check/tuning/directive_reads.h"
#include "text/ascii.h"
#include "text/message_words.h"
#include "text/numbers.h"
#include "text/words.h"

namespace brindle {
namespace {

using Kind = TemplatePiece::Kind;

constexpr std::string_view kSpeeds[2][5] = {
    {"Speed_P1_sV1", "Speed_P1_sV2", "Speed_P1_sV3", "Speed_P1_sV4", "Speed_sForArcs_P1"},
    {"Speed_P2_sV1", "Speed_P2_sV2", "Speed_P2_sV3", "Speed_P2_sV4", "Speed_sForArcs_P2"},
};
constexpr std::string_view kFactor = "Speed_sFactor";

// A word of the tuning that a run takes for a number.
struct NumberWord {
    const CheckedLine* line = nullptr;
    std::string_view word;
    std::string text;
};

std::string_view WithoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

class SpeedChecker {
public:
    SpeedChecker(const CCheckedTuning& tuning, CFindings& findings)
        : tuning_(tuning), options_(tuning.options()), findings_(findings) {
        FindUsedKeys();
    }

    void Check() {
        if (used_keys_.empty()) return;
        FindRunValues();
        for (const CheckedText& text : tuning_.texts()) CheckText(text);
        CheckSecondParameter();
        CheckToolsWithoutSpeed();
    }

private:
    // The options that the speed words of this tuning's templates read.
    void FindUsedKeys() {
        for (const DirectiveUse& use : tuning_.directives()) {
            if (use.directive->name != "@SpeedWords" || !IsRead(tuning_, *use.text)) continue;
            for (const DirectiveRead& read : DirectiveReads()) {
                if (Applies(read, use, tuning_)) used_keys_.insert(read.key);
            }
        }
    }

    void FindRunValues() {
        for (const CheckedLine& line : tuning_.lines()) {
            if (line.Word(0) != "DSD") continue;
            const std::vector<std::string> words = SplitQuotedWords(line.text);
            if (words.size() < 5 || EqualNoCase(words[2], "R_EXPR") || EqualNoCase(words[2], "T_EXPR")) continue;
            run_values_[words[3]].push_back({&line, line.Word(4), UnescapeWord(words[4])});
        }
    }

    void CheckText(const CheckedText& text) {
        const std::string_view name = text.item->match.info->name;
        const bool is_factor = name == kFactor;
        const bool is_number =
            is_factor || (text.item->match.info->group == "Speed" && name.find("Addr") == name.npos &&
                          options_.ReadBool(Key("Speed_bAsValue")));
        if (!is_number || !used_keys_.contains(name) || !IsRead(tuning_, text) || text.pieces.size() != 1) return;
        const TemplatePiece& piece = text.pieces[0].piece;
        const std::string_view word = text.item->line->words[2];
        if (piece.kind == Kind::kFixed) CheckNumber({text.item->line, word, piece.text}, is_factor);
        if (piece.kind != Kind::kRunValue || !told_values_.insert(piece.text).second) return;
        const auto values = run_values_.find(piece.text);
        if (values == run_values_.end()) return;
        for (const NumberWord& value : values->second) CheckNumber(value, is_factor);
    }

    void CheckNumber(const NumberWord& number, bool is_factor) {
        if (number.text.empty()) return;
        const double read = LeadingDouble(number.text);
        const bool counts_as_one = is_factor && std::fabs(read) < SmallestFactor();
        const std::optional<double> whole = WholeNumberText(WithoutBlanks(number.text));
        if (!whole || *whole != read) {
            std::string text = Quoted(number.text) + " is no number that can be read: as a ";
            text += is_factor ? "factor on speeds" : "speed";
            text += " it counts as " + ShortNumber(counts_as_one ? 1.0 : read);
            if (!is_factor && read == 0.0) text += ", which is not written";
            return AddAtWord(findings_, Severity::kError, *number.line, number.word, std::move(text));
        }
        if (!counts_as_one) return;
        AddAtWord(findings_, Severity::kWarning, *number.line, number.word,
                  "factors below " + ShortNumber(SmallestFactor()) + " count as 1: Speed_nNDec is " +
                      std::to_string(options_.ReadInt(Key("Speed_nNDec"))));
    }

    double SmallestFactor() const { return std::pow(10.0, -static_cast<double>(options_.ReadInt(Key("Speed_nNDec")))); }

    bool HasSpeed(std::string_view prefix, int parameter) const {
        return std::any_of(std::begin(kSpeeds[parameter]), std::end(kSpeeds[parameter]), [&](std::string_view key) {
            std::string text;
            return options_.GetText(std::string(prefix).append(key), text) && !text.empty();
        });
    }

    bool AnyToolHasSpeed(int parameter) const {
        return std::any_of(tuning_.tools().begin(), tuning_.tools().end(),
                           [&](const auto& tool) { return tool.second.own && HasSpeed(tool.first, parameter); });
    }

    void CheckSecondParameter() {
        const CheckedItem* const item = tuning_.Find("Speed_b2Params");
        if (item == nullptr || !used_keys_.contains(kSpeeds[1][0]) || !AnyToolHasSpeed(0) || AnyToolHasSpeed(1)) return;
        AddAtKey(findings_, Severity::kWarning, *item,
                 "Speed_b2Params is true, but no tool in use has a speed of parameter 2");
    }

    // A controller keeps a speed until another one comes. A tool can bring it in the fixed text of its templates.
    void CheckToolsWithoutSpeed() {
        const std::string address = options_.ReadText(Key("Speed_sParam1Addr"));
        if (address.empty() || !used_keys_.contains(kSpeeds[0][0]) || !AnyToolHasSpeed(0)) return;
        std::set<std::string_view> with_templates, with_address;
        for (const CheckedText& text : tuning_.texts()) {
            if (!text.InTemplate() || text.item->match.tool_prefix.empty()) continue;
            with_templates.insert(text.item->match.tool_prefix);
            for (const PlacedPiece& piece : text.pieces) {
                const bool may_be_speed =
                    piece.piece.kind == Kind::kRunValue || piece.piece.text.find(address) != address.npos;
                if (may_be_speed) with_address.insert(text.item->match.tool_prefix);
            }
        }
        for (const auto& [prefix, tool] : tuning_.tools()) {
            const std::string physical = options_.ToolKeyPrefix(tool.number, true);
            const bool is_told_apart = with_address.contains(prefix) || with_address.contains(physical);
            if (!tool.own || tool.number < 1 || is_told_apart || HasSpeed(prefix, 0)) continue;
            if (!with_templates.contains(prefix) && !with_templates.contains(physical)) continue;
            AddAtKey(findings_, Severity::kWarning, *tool.first,
                     "tool " + std::to_string(tool.number) + " has no speed, other tools have: it goes at theirs");
        }
    }

    const CCheckedTuning& tuning_;
    const CBrindleOpts& options_;
    CFindings& findings_;
    std::set<std::string_view> used_keys_;
    std::unordered_map<std::string, std::vector<NumberWord>> run_values_;  // by their RTD words
    std::set<std::string> told_values_;
};

}  // namespace

void CheckSpeeds(const CCheckedTuning& tuning, CFindings& findings) { SpeedChecker(tuning, findings).Check(); }

}  // namespace brindle
