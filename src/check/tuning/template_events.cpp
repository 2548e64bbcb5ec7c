#include <optional>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "language/record_needs.h"

namespace brindle {
namespace {

// Directives that write something of the selected tool.
constexpr DirectiveId kToolWords[] = {DirectiveId::kToolId, DirectiveId::kSpeedWords, DirectiveId::kTangAuxCode1,
                                      DirectiveId::kTangAuxCode2};

class EventChecker {
public:
    EventChecker(const CPlacedTuning& tuning, CDiagnostics& diagnostics) : tuning_(tuning), diagnostics_(diagnostics) {}

    void Check(const DirectiveUse& use) {
        if (CheckOptions(use)) return;
        if (const EventInfo* const event = use.text->item->match.event) {
            CheckEvent(use, *event);
        } else if (use.directive->numbering != Numbering::kNone) {
            Add(Rule::kOutsideTemplate, use, "has an effect in the lines of templates only");
        }
    }

private:
    void Add(Rule rule, const DirectiveUse& use, const std::string& text) {
        diagnostics_.Add(rule, use.place, std::string(use.directive->name) + " " + text);
    }

    // True if something was found.
    bool CheckOptions(const DirectiveUse& use) {
        const Condition needed = NeededCondition(use.directive->id);
        if (Holds(needed, tuning_) || use.keywords.Has(Keyword::kRadial)) return false;
        Add(Rule::kNeedsOption, use, "has no effect: " + std::string(WhyNot(needed)));
        return true;
    }

    // What counts at an event: in further segments there may be records and tools where there are none at first.
    std::optional<EventState> StateOf(const EventInfo& event) const {
        const bool segments = Holds(Condition::kSegments, tuning_);
        const bool subs_first =
            tuning_.options().ReadBool(Key("bOutputSubsFirst")) || Holds(Condition::kNumberByBlock, tuning_);
        for (EventState state : EventStates()) {
            if (!state.event.Is(&event)) continue;
            if (segments && state.with_segments) return std::nullopt;
            if (state.records == kNoRecord && (segments || (subs_first && Event("MainInit_").Is(&event)))) {
                state.records = kAllRecords;
            }
            return state;
        }
        return std::nullopt;
    }

    void CheckEvent(const DirectiveUse& use, const EventInfo& event) {
        const std::optional<EventState> state = StateOf(event);
        if (!state) return;
        const std::string here = std::string("in ").append(event.prefix).append(Key("tTmpl")->name).append(": ");
        const Records needed = NeededRecords(*use.directive);
        if (needed != kAllRecords && (needed & state->records) == 0) {
            const bool zero = WritesZeroElsewhere(*use.directive);
            const std::string gives = zero ? "writes no more than a 0 " : "gives nothing ";
            return Add(Rule::kNeedsRecord, use, gives + here + std::string(state->record_text));
        }
        if (!state->has_tool) CheckToolWord(use, here);
        CheckProgramWord(use, event, here);
    }

    void CheckToolWord(const DirectiveUse& use, const std::string& here) {
        const DirectiveId id = use.directive->id;
        if (std::find(std::begin(kToolWords), std::end(kToolWords), id) == std::end(kToolWords)) return;
        if (id != DirectiveId::kToolId && tuning_.options().ReadBool(Key("bDefaultTool"))) return;
        Add(Rule::kNeedsTool, use, "gives nothing " + here + "no tool is selected");
    }

    void CheckProgramWord(const DirectiveUse& use, const EventInfo& event, const std::string& here) {
        constexpr EventSet kInSub{Event("SubInit_"), Event("SubTerm_")};
        constexpr EventSet kInMain{Event("FileStart_"), Event("MainInit_"), Event("MainTerm_")};
        const DirectiveId id = use.directive->id;
        if (id == DirectiveId::kMarkAsSub && kInMain.Has(&event)) {
            Add(Rule::kMarkOutsideSub, use, "has no effect " + here + "no sub-program is being written");
        }
        if (id == DirectiveId::kCurProgNum && kInSub.Has(&event) && Holds(Condition::kNumberByBlock, tuning_)) {
            Add(Rule::kNumberNotKnown, use,
                "gives nothing " + here + "a block number is known where the sub-program is called");
        }
    }

    const CPlacedTuning& tuning_;
    CDiagnostics& diagnostics_;
};

}  // namespace

void CheckTemplateEvents(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    EventChecker checker(tuning, diagnostics);
    for (const DirectiveUse& use : tuning.directives()) {
        if (IsRead(tuning, *use.text)) checker.Check(use);
    }
}

}  // namespace brindle
