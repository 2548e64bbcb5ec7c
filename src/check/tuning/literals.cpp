// A run leaves out a code or a speed that repeats the last one. What a template writes as fixed text it does not
// remember: it may leave out a word that the machine needs.
#include <algorithm>
#include <unordered_map>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "check/tuning/literal_words.h"

namespace brindle {
namespace {

using D = DirectiveId;

// What a run remembers, and fixed text can change behind its back.
struct Memory {
    Rule rule;
    DirectiveId directive;
    KeyRef modal;  // whether repeats are left out
    KeyRef clear;  // of a template, after which nothing is remembered
};

constexpr Memory kMotion = {Rule::kLiteralMotion, D::kInterpCode, Key("bICodesModal"), Key("bClearInterp")};
constexpr Memory kMode = {Rule::kLiteralMode, D::kAbsIncCode, Key("bMCodeModal"), Key("bClearAbsInc")};
constexpr Memory kSpeed = {Rule::kLiteralSpeed, D::kSpeedWords, Key("Speed_bModal"), Key("bClearSpeed")};

// At these nothing is remembered yet, or nothing is any more.
constexpr EventSet kFirstEvents{Event("FileStart_"), Event("MainInit_"), Event("SubInit_")};
constexpr EventSet kLastEvents{Event("FileEnd_"),     Event("MainTerm_"),     Event("SubTerm_"),
                               Event("SubCall_"),     Event("SubReset_"),     Event("MoveToIncludePt_"),
                               Event("OriTransSet_"), Event("OriTransReset_")};
// After these the tool goes on again, after a move or where it is, before anything is cut.
constexpr EventSet kBeforeToolOn{Event("ToolSel_"), Event("ToolDesel_"), Event("ToolOff_")};

bool IsModal(const CBrindleOpts& options, KeywordSet keywords, KeyRef by_default) {
    if (keywords.Has(Keyword::kModal)) return true;
    return options.ReadBool(by_default) && !keywords.Has(Keyword::kNonModal);
}

// The lines of a template.
struct Template {
    const PlacedItem* item = nullptr;
    std::vector<const PlacedText*> lines;

    bool IsOf(EventSet events) const { return events.Has(item->match.event); }
};

// What a template leaves behind: its last fixed word of a kind that no directive after it makes up for.
struct Literal {
    const PlacedText* text = nullptr;
    LiteralWord word = {};
    bool is_first_of_kind = true;  // no directive of the kind comes before it
};

class LiteralChecker {
public:
    LiteralChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), options_(tuning.options()), diagnostics_(diagnostics) {
        FindTemplates();
        for (const KeyRef key : {Key("sRTCode"), Key("sLTCode"), Key("sCWCode"), Key("sCCWCode")}) {
            writes_g_motion_ |= HoldsMotion(LiteralWordsOf(options_.ReadText(key)));
        }
        for (const auto& [prefix, tool] : tuning.tools()) own_tools_ += tool.own ? 1 : 0;
    }

    void Check() {
        if (writes_g_motion_ && IsRemembered(kMotion)) CheckTemplates(kMotion);
        const bool same_mode_everywhere =
            !Holds(Condition::kSubs, tuning_) ||
            Holds(Condition::kSubsAbsolute, tuning_) == Holds(Condition::kAbsoluteMain, tuning_);
        if (same_mode_everywhere && IsRemembered(kMode)) CheckTemplates(kMode);
        speed_address_ = options_.ReadText(Key("Speed_sParam1Addr"));
        if (speed_address_.size() == 1 && IsRemembered(kSpeed)) CheckTemplates(kSpeed);
    }

private:
    void FindTemplates() {
        std::unordered_map<const PlacedItem*, size_t> at;
        for (const PlacedText& text : tuning_.texts()) {
            if (!text.InTemplate() || !IsRead(tuning_, text)) continue;
            const auto [found, is_new] = at.emplace(text.item, templates_.size());
            if (is_new) templates_.push_back({text.item, {}});
            templates_[found->second].lines.push_back(&text);
        }
        for (const DirectiveUse& use : tuning_.directives()) uses_[use.text].push_back(&use);
    }

    // Whether a template writes such words and leaves out repeats.
    bool IsRemembered(const Memory& memory) const {
        return std::any_of(tuning_.directives().begin(), tuning_.directives().end(), [&](const DirectiveUse& use) {
            return use.directive->id == memory.directive && IsRead(tuning_, *use.text) &&
                   IsModal(options_, use.keywords, memory.modal);
        });
    }

    static bool IsMotion(const LiteralWord& word) {
        return word.letter == 'G' && word.number && *word.number >= 0.0 && *word.number <= 3.0 &&
               *word.number == static_cast<int>(*word.number);
    }
    static bool HoldsMotion(const std::vector<LiteralWord>& words) {
        return std::any_of(words.begin(), words.end(), IsMotion);
    }

    bool IsOfKind(const LiteralWord& word, const Memory& memory) const {
        if (memory.rule == Rule::kLiteralMotion) return IsMotion(word);
        if (memory.rule == Rule::kLiteralMode) return word.Is('G', 90.0) || word.Is('G', 91.0);
        return word.letter == speed_address_[0] || word.letter - 'A' + 'a' == speed_address_[0];
    }

    // The kind's directive in a piece, null if there is another one, or none.
    const DirectiveUse* UseAt(const PlacedText& text, size_t piece, const Memory& memory) const {
        const auto uses = uses_.find(&text);
        if (uses == uses_.end()) return nullptr;
        for (const DirectiveUse* use : uses->second) {
            if (use->piece == piece && use->directive->id == memory.directive) return use;
        }
        return nullptr;
    }

    Literal LastLiteral(const Template& one, const Memory& memory) const {
        Literal last;
        bool has_directive = false;
        for (const PlacedText* text : one.lines) {
            const std::vector<LiteralWord> words = LiteralWordsOf(*text);
            for (size_t i = 0; i < text->pieces.size(); ++i) {
                for (const LiteralWord& word : words) {
                    if (word.piece == i && IsOfKind(word, memory)) last = {text, word, !has_directive};
                }
                const DirectiveUse* const use = UseAt(*text, i, memory);
                if (use == nullptr) continue;
                // At first nothing is remembered, so that nothing is left out.
                const bool is_first = one.IsOf(kFirstEvents) && !has_directive;
                if (is_first || !IsModal(options_, use->keywords, memory.modal)) last = {};
                has_directive = true;
            }
        }
        return last;
    }

    bool Clears(const PlacedItem& item, const Memory& memory) const {
        const std::string key(item.key.substr(0, item.key.size() - Key("tTmpl")->name.size()));
        int32_t value = 0;
        return options_.GetBool(key + std::string(memory.clear->name), value) && value != 0;
    }

    void CheckTemplates(const Memory& memory) {
        const bool comes_on_anew = ComesOnAnew(memory);
        for (const Template& one : templates_) {
            if (one.IsOf(kLastEvents) || Clears(*one.item, memory)) continue;
            if (comes_on_anew && one.IsOf(kBeforeToolOn)) continue;
            const Literal literal = LastLiteral(one, memory);
            if (literal.text == nullptr || (one.IsOf(kFirstEvents) && literal.is_first_of_kind)) continue;
            if (Hides(one, literal, memory)) Report(*one.item, literal, memory);
        }
    }

    // Whether each tool's ToolOn template forgets what was written, or says it again.
    bool ComesOnAnew(const Memory& memory) const {
        size_t count = 0;
        for (const Template& one : templates_) {
            if (!one.IsOf({Event("ToolOn_")})) continue;
            const bool says_again = memory.rule == Rule::kLiteralMotion && LastLiteral(one, memory).text != nullptr;
            if (!Clears(*one.item, memory) && !says_again) return false;
            ++count;
        }
        return count > 0 && count >= own_tools_;
    }

    // Whether what the run remembers after the template can differ from what the machine does.
    bool Hides(const Template& one, const Literal& literal, const Memory& memory) const {
        if (memory.rule == Rule::kLiteralMode) {
            return literal.word.Is('G', options_.ReadBool(Key("bOutModeAbs")) ? 91.0 : 90.0);
        }
        const std::string_view tool = one.item->match.tool_prefix;
        if (memory.rule == Rule::kLiteralSpeed) return tool.empty() || HasSpeed(tool);
        // A move comes between, of which the run knows.
        if (!tool.empty()) return own_tools_ > 1 || tuning_.abilities().tangential;
        if (literal.is_first_of_kind || one.IsOf({Event("Text_")})) return true;
        // After a move there is a cut, which has another code.
        if (one.IsOf({Event("Move_")})) return false;
        return !one.IsOf({Event("Line_")}) || !SameMotion(literal.word, Key("sLTCode"));
    }

    bool SameMotion(const LiteralWord& word, KeyRef code) const {
        for (const LiteralWord& one : LiteralWordsOf(options_.ReadText(code))) {
            if (IsMotion(one)) return one.number == word.number;
        }
        return false;
    }

    // A tool without a speed of its own makes the run forget the last one.
    bool HasSpeed(std::string_view physical) const {
        return std::any_of(tuning_.tools().begin(), tuning_.tools().end(), [&](const auto& tool) {
            if (!tool.second.own) return false;
            const bool is_its = tool.first == physical || options_.ToolKeyPrefix(tool.second.number, true) == physical;
            const std::string first = options_.ReadText(Key("Speed_P1_sV1"), tool.first);
            return is_its && !(first.empty() && options_.ReadText(Key("Speed_P1_sV2"), tool.first).empty());
        });
    }

    void Report(const PlacedItem& item, const Literal& literal, const Memory& memory) {
        const std::string event(item.key.substr(0, item.key.size() - Key("tTmpl")->name.size()));
        const bool is_mode = memory.rule == Rule::kLiteralMode;
        diagnostics_.Add(memory.rule, literal.word.place,
                         std::string(Info(memory.directive).name) +
                             " does not know of this fixed text, and may leave out what is needed after it",
                         is_mode ? "end the template with <@AbsIncCode[NONMODAL]>"
                                 : "set " + event + std::string(memory.clear->name) + " true");
    }

    const CPlacedTuning& tuning_;
    const CBrindleOpts& options_;
    CDiagnostics& diagnostics_;
    std::vector<Template> templates_;
    std::unordered_map<const PlacedText*, std::vector<const DirectiveUse*>> uses_;
    bool writes_g_motion_ = false;
    size_t own_tools_ = 0;
    std::string speed_address_;
};

}  // namespace

void CheckLiterals(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    LiteralChecker(tuning, diagnostics).Check();
}

}  // namespace brindle
