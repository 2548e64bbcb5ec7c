#include <optional>

#include "check/tuning/check.h"
#include "check/tuning/conditions.h"
#include "check/tuning/record_needs.h"

namespace brindle {
namespace {

// What stands ready when the template of an event is executed. A segment can end at any record.
struct EventPlace {
    std::string_view prefix;
    Records records;
    std::string_view record_text;  // as the end of a sentence
    bool has_tool;                 // one is selected
    bool with_segments = false;    // none of this holds if the output is cut into segments
};

constexpr EventPlace kPlaces[] = {
    {"FileStart_", kNoRecord, "there is no record yet", false},
    {"FileEnd_", kAllRecords, "", false, true},
    {"MainInit_", kNoRecord, "there is no record yet", false},
    {"MainTerm_", kLineRecord, "the record is the final position", false, true},
    {"SubInit_", kAllRecords, "", false},
    {"SubTerm_", kAllRecords, "", true},
    {"Move_", kCutRecords | kTextRecord, "the record is the one moved to, never a call", true},
    {"Line_", kLineRecord, "the record is a line", true},
    {"Arc_", kArcRecord, "the record is an arc", true},
    {"Text_", kTextRecord, "the record is a text", true},
    {"SubCall_", kCallRecord, "the record is a call", true},
    {"SubReset_", kCallRecord, "the record is a call", true},
    {"OriTransSet_", kCallRecord, "the record is a call", true},
    {"OriTransReset_", kCallRecord, "the record is a call", true},
    {"MoveToIncludePt_", kCallRecord, "the record is a call", true},
    {"Fly_PreCheck_", kCutRecords, "the record is a line or an arc", true},
    {"Fly_PostCheck_", kCutRecords, "the record is a line or an arc", true, true},
    {"ToolSel_", kCutRecords | kTextRecord, "the record is the one to be written, never a call", true},
    {"ToolDesel_", kCutRecords | kTextRecord, "the record is the one to be written, never a call", true},
    {"ToolOn_", kCutRecords | kTextRecord, "the record is the one to be written, never a call", true},
    {"ToolOff_", kAllRecords, "", true},
};

// Directives that need an option.
struct OptionNeed {
    std::string_view directive;
    const Condition* condition;
};

constexpr OptionNeed kOptionNeeds[] = {
    {"@TextDataWord", &kText},
    {"@TextRotWord", &kText},
    {"@TextHgtWord", &kText},
    {"@AtAngle", &kTangential},
    {"@FinAngle", &kTangential},
    {"@TangAuxCode1", &kTangential},
    {"@TangAuxCode2", &kTangential},
    {"@SpeedWords", &kAnyTool},
    {"@ToolId", &kAnyTool},
    {"@IncludeMirCode", &kMirror},
    {"@IncludeMirResetCode", &kMirror},
    {"@IncludeRotWord", &kRotations},
    {"@IncludeRotResetWord", &kRotations},
    {"@MarkAsSub", &kNumberByBlock},
};

constexpr std::string_view kToolWords[] = {"@ToolId", "@SpeedWords", "@TangAuxCode1", "@TangAuxCode2"};

template <typename Row, size_t kCount>
const Row* RowOf(const Row (&table)[kCount], std::string_view directive) {
    for (const Row& row : table) {
        if (row.directive == directive) return &row;
    }
    return nullptr;
}

class PlaceChecker {
public:
    PlaceChecker(const CCheckedTuning& tuning, CFindings& findings) : tuning_(tuning), findings_(findings) {}

    void Check(const DirectiveUse& use) {
        if (CheckOptions(use)) return;
        if (const EventInfo* const event = use.text->item->match.event) {
            CheckEvent(use, *event);
        } else if (use.directive->numbering != Numbering::kNone) {
            Tell(Severity::kWarning, use, "has an effect in the lines of templates only");
        }
    }

private:
    void Tell(Severity severity, const DirectiveUse& use, const std::string& text) {
        findings_.Add(severity, use.text->placed.line(), use.column, use.length,
                      std::string(use.directive->name) + " " + text);
    }

    // True if something was found.
    bool CheckOptions(const DirectiveUse& use) {
        const OptionNeed* const need = RowOf(kOptionNeeds, use.directive->name);
        if (need == nullptr || need->condition->holds(tuning_, {}) || use.keywords.Has(Keyword::kRadial)) return false;
        Tell(Severity::kInfo, use, "has no effect: " + std::string(need->condition->otherwise));
        return true;
    }

    // What a place is worth: in further segments records and tools may stand ready where there are none at first.
    std::optional<EventPlace> PlaceOf(const EventInfo& event) const {
        const bool segments = kSegments.holds(tuning_, {});
        const bool subs_first =
            tuning_.options().ReadBool(Key("bOutputSubsFirst")) || kNumberByBlock.holds(tuning_, {});
        for (EventPlace place : kPlaces) {
            if (place.prefix != event.prefix) continue;
            if (segments && place.with_segments) return std::nullopt;
            if (place.records == kNoRecord && (segments || (subs_first && event.prefix == "MainInit_"))) {
                place.records = kAllRecords;
            }
            return place;
        }
        return std::nullopt;
    }

    void CheckEvent(const DirectiveUse& use, const EventInfo& event) {
        const std::optional<EventPlace> place = PlaceOf(event);
        if (!place) return;
        const std::string here = std::string("in ").append(event.prefix).append("tTmpl: ");
        const Records needed = NeededRecords(*use.directive);
        if (needed != kAllRecords && (needed & place->records) == 0) {
            const bool zero = WritesZeroElsewhere(*use.directive);
            const std::string gives = zero ? "writes no more than a 0 " : "gives nothing ";
            return Tell(Severity::kWarning, use, gives + here + std::string(place->record_text));
        }
        if (!place->has_tool) CheckToolWord(use, here);
        CheckProgramWord(use, event, here);
    }

    void CheckToolWord(const DirectiveUse& use, const std::string& here) {
        const std::string_view name = use.directive->name;
        if (std::find(std::begin(kToolWords), std::end(kToolWords), name) == std::end(kToolWords)) return;
        if (name != "@ToolId" && tuning_.options().ReadBool(Key("bDefaultTool"))) return;
        Tell(Severity::kWarning, use, "gives nothing " + here + "no tool is selected");
    }

    void CheckProgramWord(const DirectiveUse& use, const EventInfo& event, const std::string& here) {
        const std::string_view name = use.directive->name;
        const bool in_sub = event.prefix == "SubInit_" || event.prefix == "SubTerm_";
        const bool in_main = event.prefix == "FileStart_" || event.prefix == "MainInit_" || event.prefix == "MainTerm_";
        if (name == "@MarkAsSub" && in_main) {
            Tell(Severity::kWarning, use, "has no effect " + here + "no sub-program is being written");
        }
        if (name == "@CurProgNum" && in_sub && kNumberByBlock.holds(tuning_, {})) {
            Tell(Severity::kWarning, use,
                 "gives nothing " + here + "a block number is known where the sub-program is called");
        }
    }

    const CCheckedTuning& tuning_;
    CFindings& findings_;
};

}  // namespace

void CheckPlaces(const CCheckedTuning& tuning, CFindings& findings) {
    PlaceChecker checker(tuning, findings);
    for (const DirectiveUse& use : tuning.directives()) {
        if (IsRead(tuning, *use.text)) checker.Check(use);
    }
}

}  // namespace brindle
