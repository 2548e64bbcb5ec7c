#include <algorithm>
#include <array>

#include "check/number_words.h"
#include "check/tuning/check.h"
#include "check/tuning/conditions.h"
#include "text/message_words.h"
#include "text/numbers.h"

namespace brindle {
namespace {

using Kind = TemplatePiece::Kind;

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsEvent(const CheckedText& text, std::initializer_list<std::string_view> events) {
    return text.InTemplate() && IsOneOf(text.item->match.event->prefix, events);
}

// Looks for what a run needs a directive for that stands in none of the texts that it reads.
class MissingWordChecker {
public:
    MissingWordChecker(const CCheckedTuning& tuning, CFindings& findings)
        : tuning_(tuning), options_(tuning.options()), findings_(findings) {}

    void Check() {
        if (kMirror.holds(tuning_, {}) && !Writes({"@IncludeMirCode"}))
            Warn("bUseMirror", "no template has @IncludeMirCode: mirrored calls are cut as if they were not mirrored");
        if (kRotations.holds(tuning_, {}) && !Writes({"@IncludeRotWord"}))
            Warn("bUseRotations", "no template has @IncludeRotWord: turned calls are cut as if they were not turned");
        CheckFlyMode();
        CheckRotation();
        CheckCalls();
        CheckModeOfSubs();
        CheckSequence();
    }

private:
    // Tells it at a key, if that stands in the tuning.
    void Warn(std::string_view key, std::string text) {
        const CheckedItem* const item = tuning_.Find(key);
        if (item != nullptr) AddAtKey(findings_, Severity::kWarning, *item, std::move(text));
    }

    template <typename Test>
    bool AnyUse(Test test) const {
        return std::any_of(tuning_.directives().begin(), tuning_.directives().end(),
                           [&](const DirectiveUse& use) { return test(use) && IsRead(tuning_, *use.text); });
    }

    template <typename Test>
    bool AnyText(Test test) const {
        return std::any_of(tuning_.texts().begin(), tuning_.texts().end(),
                           [&](const CheckedText& text) { return test(text) && IsRead(tuning_, text); });
    }

    bool Writes(std::initializer_list<std::string_view> directives) const {
        return AnyUse([&](const DirectiveUse& use) { return IsOneOf(use.directive->name, directives); });
    }

    bool HasTemplate(std::initializer_list<std::string_view> events) const {
        return AnyText([&](const CheckedText& text) { return IsEvent(text, events); });
    }

    void CheckFlyMode() {
        if (!kFly.holds(tuning_, {}) || !tuning_.abilities().fly) return;
        if (Writes({"@FlyModeCode"}) || HasTemplate({"Fly_PreCheck_", "Fly_PostCheck_"})) return;
        Warn("Fly_bSupport", "no template has @FlyModeCode: fly mode never goes on");
    }

    // A knife that swivels by itself is tangential too and needs no words; an address tells that they are wanted.
    void CheckRotation() {
        const bool is_wanted = tuning_.abilities().tangential && !options_.ReadText(Key("ToolRot_sAddr")).empty();
        if (!is_wanted || Writes({"@AtAngle", "@FinAngle"})) return;
        for (const auto& [prefix, tool] : tuning_.tools()) {
            if (!tool.physical || !options_.IsTangential(prefix)) continue;
            return Warn(prefix + "bTangential", "no template has @AtAngle or @FinAngle: the tool is never turned");
        }
    }

    void CheckCalls() {
        if (!HasTemplate({"SubCall_"})) return;
        const bool tells_place = AnyUse([](const DirectiveUse& use) {
            return IsOneOf(use.directive->name, {"@IncludePtWords", "@StartPtWords", "@EndPtWords"}) &&
                   IsEvent(*use.text, {"SubCall_", "MoveToIncludePt_", "OriTransSet_"});
        });
        if (tells_place) return;
        Warn("SubCall_tTmpl",
             "neither this nor MoveToIncludePt_tTmpl has @IncludePtWords: all calls are cut in one place");
    }

    // The code can stand in a template as fixed text too.
    void CheckModeOfSubs() {
        if (!HasTemplate({"SubCall_"}) || !kAbsoluteMain.holds(tuning_, {}) || kSubsAbsolute.holds(tuning_, {})) return;
        const bool has_word = AnyUse([](const DirectiveUse& use) {
            return use.directive->name == "@AbsIncCode" &&
                   !IsEvent(*use.text, {"FileStart_", "FileEnd_", "MainInit_", "MainTerm_"});
        });
        const std::string code = options_.ReadText(Key("sIncCode"));
        const bool has_code = AnyText([&](const CheckedText& text) {
            return IsEvent(text, {"SubInit_", "SubCall_"}) && MayHoldCode(text, code);
        });
        if (has_word || has_code) return;
        Warn("SubCall_tTmpl",
             "sub-programs are incremental, the main program is absolute, and SubInit_tTmpl has no @AbsIncCode to say "
             "so");
    }

    static bool MayHoldCode(const CheckedText& text, std::string_view code) {
        return std::any_of(text.pieces.begin(), text.pieces.end(), [&](const PlacedPiece& placed) {
            const std::string_view fixed = placed.piece.text;
            if (placed.piece.kind != Kind::kFixed) return false;
            if (!code.empty()) return fixed.find(code) != fixed.npos;
            const bool is_start_of_sub = IsEvent(text, {"SubInit_"});
            return is_start_of_sub && fixed.size() > 1;
        });
    }

    void CheckSequence() {
        if (!kSubs.holds(tuning_, {}) || !options_.ReadBool(Key("SubNum_bUseSequence"))) return;
        const std::string number = options_.ReadText(Key("sMainProgNum"));
        const bool is_plain = number.find('<') == number.npos && !number.empty();
        if (!is_plain || WholeNumberText(number) || !Writes({"@CurProgNum", "@IncludeNum"})) return;
        Warn("sMainProgNum",
             Quoted(number) + " is no number: the numbers of programs begin at " + std::to_string(LeadingInt(number)));
    }

    const CCheckedTuning& tuning_;
    const CBrindleOpts& options_;
    CFindings& findings_;
};

}  // namespace

void CheckMissingWords(const CCheckedTuning& tuning, CFindings& findings) {
    MissingWordChecker(tuning, findings).Check();
}

}  // namespace brindle
