#include <algorithm>
#include <initializer_list>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle {
namespace {

using Kind = TemplatePiece::Kind;

using D = DirectiveId;
using Directives = std::initializer_list<DirectiveId>;

bool IsOneOf(const DirectiveUse& use, Directives directives) {
    return std::find(directives.begin(), directives.end(), use.directive->id) != directives.end();
}

bool IsEvent(const PlacedText& text, EventSet events) { return events.Has(text.item->match.event); }

// Looks for what a run needs a directive for that is in none of the texts that it reads.
class MissingWordChecker {
public:
    MissingWordChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics)
        : tuning_(tuning), options_(tuning.options()), diagnostics_(diagnostics) {}

    void Check() {
        if (Holds(Condition::kMirror, tuning_) && !Writes({D::kIncludeMirCode}))
            Add(Rule::kNoMirrorCode, Key("bUseMirror")->name,
                "no template has @IncludeMirCode: mirrored calls are cut as if they were not mirrored");
        if (Holds(Condition::kRotations, tuning_) && !Writes({D::kIncludeRotWord}))
            Add(Rule::kNoRotationWord, Key("bUseRotations")->name,
                "no template has @IncludeRotWord: turned calls are cut as if they were not turned");
        CheckFlyMode();
        CheckRotation();
        CheckEntry();
        CheckCalls();
        CheckModeOfSubs();
        CheckSequence();
    }

private:
    // Reports it at a key, if that is in the tuning.
    void Add(Rule rule, std::string_view key, std::string text) {
        const PlacedItem* const item = tuning_.Find(key);
        if (item != nullptr) diagnostics_.Add(rule, item->KeyPlace(), std::move(text));
    }

    template <typename Test>
    bool AnyUse(Test test) const {
        return std::any_of(tuning_.directives().begin(), tuning_.directives().end(),
                           [&](const DirectiveUse& use) { return test(use) && IsRead(tuning_, *use.text); });
    }

    template <typename Test>
    bool AnyText(Test test) const {
        return std::any_of(tuning_.texts().begin(), tuning_.texts().end(),
                           [&](const PlacedText& text) { return test(text) && IsRead(tuning_, text); });
    }

    bool Writes(Directives directives) const {
        return AnyUse([&](const DirectiveUse& use) { return IsOneOf(use, directives); });
    }

    bool HasTemplate(EventSet events) const {
        return AnyText([&](const PlacedText& text) { return IsEvent(text, events); });
    }

    void CheckFlyMode() {
        if (!Holds(Condition::kFly, tuning_) || !tuning_.abilities().fly) return;
        if (Writes({D::kFlyModeCode}) || HasTemplate({Event("Fly_PreCheck_"), Event("Fly_PostCheck_")})) return;
        Add(Rule::kNoFlyCode, Key("Fly_bSupport")->name, "no template has @FlyModeCode: fly mode never goes on");
    }

    // A knife that swivels by itself is tangential too and needs no words; an address says that they are wanted.
    void CheckRotation() {
        const bool is_wanted = tuning_.abilities().tangential && !options_.ReadText(Key("ToolRot_sAddr")).empty();
        if (!is_wanted || Writes({D::kAtAngle, D::kFinAngle})) return;
        for (const auto& [prefix, tool] : tuning_.tools()) {
            if (!tool.physical || !options_.IsTangential(prefix)) continue;
            return Add(Rule::kNoToolRotation, prefix + std::string(Key("bTangential")->name),
                       "no template has @AtAngle or @FinAngle: the tool is never turned");
        }
    }

    // A tool that lifts to be turned goes down again where it is: no move turns it.
    void CheckEntry() {
        if (options_.ReadText(Key("ToolRot_sAddr")).empty() || !Writes({D::kAtAngle})) return;
        for (const auto& [prefix, tool] : tuning_.tools()) {
            if (!tool.physical || !options_.IsTangential(prefix)) continue;
            const std::string on = TemplateKey(Event("ToolOn_"), prefix);
            // No turn is more than half a circle.
            const bool lifts = options_.ReadReal(Key("rLiftAngDEG"), prefix) < 180.0;
            const bool goes_down = lifts && AnyText([&on](const PlacedText& text) { return text.item->key == on; });
            const bool is_turned = AnyUse([&on](const DirectiveUse& use) {
                return use.text->item->key == on && IsOneOf(use, {D::kAtAngle, D::kFinAngle});
            });
            if (!goes_down || is_turned) continue;
            Add(Rule::kNoEntryAngle, on,
                on + " has no @AtAngle: after a lift the tool goes down as it was, and turns in the material");
        }
    }

    void CheckCalls() {
        if (!HasTemplate({Event("SubCall_")})) return;
        const bool tells_place = AnyUse([](const DirectiveUse& use) {
            return IsOneOf(use, {D::kIncludePtWords, D::kStartPtWords, D::kEndPtWords}) &&
                   IsEvent(*use.text, {Event("SubCall_"), Event("MoveToIncludePt_"), Event("OriTransSet_")});
        });
        if (tells_place) return;
        Add(Rule::kNoCallPosition, TemplateKey(Event("SubCall_")),
            "neither this nor MoveToIncludePt_tTmpl has @IncludePtWords: all calls are cut in one place");
    }

    // The code can be in a template as fixed text too.
    void CheckModeOfSubs() {
        if (!HasTemplate({Event("SubCall_")}) || !Holds(Condition::kAbsoluteMain, tuning_) ||
            Holds(Condition::kSubsAbsolute, tuning_))
            return;
        const bool has_word = AnyUse([](const DirectiveUse& use) {
            return use.directive->id == D::kAbsIncCode && !IsEvent(*use.text, {Event("FileStart_"), Event("FileEnd_"),
                                                                               Event("MainInit_"), Event("MainTerm_")});
        });
        const std::string code = options_.ReadText(Key("sIncCode"));
        const bool has_code = AnyText([&](const PlacedText& text) {
            return IsEvent(text, {Event("SubInit_"), Event("SubCall_")}) && MayHoldCode(text, code);
        });
        if (has_word || has_code) return;
        Add(Rule::kNoModeOfSubs, TemplateKey(Event("SubCall_")),
            "sub-programs are incremental, the main program is absolute, and SubInit_tTmpl has no @AbsIncCode to say "
            "so");
    }

    static bool MayHoldCode(const PlacedText& text, std::string_view code) {
        return std::any_of(text.pieces.begin(), text.pieces.end(), [&](const PlacedPiece& placed) {
            const std::string_view fixed = placed.piece.text;
            if (placed.piece.kind != Kind::kFixed) return false;
            if (!code.empty()) return fixed.find(code) != fixed.npos;
            const bool is_start_of_sub = IsEvent(text, {Event("SubInit_")});
            return is_start_of_sub && fixed.size() > 1;
        });
    }

    void CheckSequence() {
        if (!Holds(Condition::kSubs, tuning_) || !options_.ReadBool(Key("SubNum_bUseSequence"))) return;
        const std::string number = options_.ReadText(Key("sMainProgNum"));
        const bool is_plain = number.find('<') == number.npos && !number.empty();
        if (!is_plain || ParseNumber(number) || !Writes({D::kCurProgNum, D::kIncludeNum})) return;
        Add(Rule::kMainNumberText, Key("sMainProgNum")->name,
            Quoted(number) + " is no number: the numbers of programs begin at " + std::to_string(LeadingInt(number)));
    }

    const CPlacedTuning& tuning_;
    const CBrindleOpts& options_;
    CDiagnostics& diagnostics_;
};

}  // namespace

void CheckMissingDirectives(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    MissingWordChecker(tuning, diagnostics).Check();
}

}  // namespace brindle
