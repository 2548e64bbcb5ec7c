// The table of the options that directives read, held against runs: a directive is alone in the templates, one
// option has one value and then another, and the NC text differs or does not.
#include "language/directive_reads.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>

#include "check/tuning/conditions.h"
#include "tuning/type_words.h"
#include "unit/host_session.h"

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

// The options that make a condition true, and those that make it false.
struct Switch {
    Condition condition;
    Lines on, off;
};

const Switch kSwitches[] = {
    {Condition::kAlways, {}, {}},
    {Condition::kInches, {"BOOL bOutUnitsInches true"}, {"BOOL bOutUnitsInches false"}},
    {Condition::kMillimetres, {"BOOL bOutUnitsInches false"}, {"BOOL bOutUnitsInches true"}},
    {Condition::kStartOnBlock, {"BOOL bStartEndOnBlock true"}, {"BOOL bStartEndOnBlock false"}},
    {Condition::kStartApart, {"BOOL bStartEndOnBlock false"}, {"BOOL bStartEndOnBlock true"}},
    {Condition::kArcByRadius, {"BOOL bArcByRad true"}, {"BOOL bArcByRad false"}},
    {Condition::kArcBySubtended, {"BOOL bArcBySub true"}, {"BOOL bArcBySub false"}},
    {Condition::kArcByCentre, {}, {"BOOL bArcByRad true"}},
    {Condition::kTangential, {"BOOL T1_bTangential true"}, {"BOOL T1_bTangential false"}},
    {Condition::kToolCodes, {"BOOL bToolDependInterp true"}, {"BOOL bToolDependInterp false"}},
    {Condition::kCommonCodes, {"BOOL bToolDependInterp false"}, {"BOOL bToolDependInterp true"}},
    {Condition::kFly, {"BOOL Fly_bSupport true"}, {"BOOL Fly_bSupport false"}},
    {Condition::kText, {"BOOL bUseText true"}, {"BOOL bUseText false"}},
    {Condition::kTwoParameters, {"BOOL Speed_b2Params true"}, {"BOOL Speed_b2Params false"}},
    {Condition::kSpeedFactor, {"BOOL Speed_bFactor true"}, {"BOOL Speed_bFactor false"}},
    {Condition::kSpeedsAreNumbers, {"BOOL Speed_bAsValue true"}, {}},
    {Condition::kMirror, {"BOOL bUseMirror true"}, {"BOOL bUseMirror false"}},
    {Condition::kRotations, {"BOOL bUseMirror true", "BOOL bUseRotations true"}, {"BOOL bUseRotations false"}},
    {Condition::kAbsoluteMain, {"BOOL bOutModeAbs true"}, {"BOOL bOutModeAbs false"}},
    {Condition::kIncrementalMain, {"BOOL bOutModeAbs false"}, {"BOOL bOutModeAbs true"}},
    {Condition::kSubsAbsolute, {"BOOL bSubsInAbs true"}, {"BOOL bSubsInAbs false"}},
    {Condition::kSubsIncremental, {"BOOL bSubsInAbs false"}, {"BOOL bSubsInAbs true"}},
};

const Switch& SwitchOf(Condition condition) {
    return *std::find_if(std::begin(kSwitches), std::end(kSwitches),
                         [condition](const Switch& one) { return one.condition == condition; });
}

// Much that a controller can do at once.
const Lines kBusy = {"BOOL bUseMirror true",    "BOOL bUseRotations true",       "BOOL Fly_bSupport true",
                     "BOOL Speed_bFactor true", "BOOL T1_bTangential true",      "TEXT SubRot_sAddr R",
                     "TEXT sMirrorX MX",        "BOOL T1_Speed_bSepForArcs true"};

// What a row needs besides its condition.
struct Extra {
    DirectiveId directive;
    KeyPattern keys;
    const char* keywords;
    Lines lines;
};

const Extra kExtras[] = {
    {DirectiveId::kTextDataWord, "TextData_*", "", {"BOOL bUseText true", "TEXT TextData_sFROM_1 e"}},
    {DirectiveId::kNBlockOn, "nNWordInitVal", "", {"INT nNWordBigInc 1"}},
    {DirectiveId::kNBlockOn, "nNWordSmInc", "SPECIAL", {}},
    {DirectiveId::kSpeedWords, "Speed_sForArcs_*", "", {"BOOL T1_Speed_bSepForArcs true"}},
    {DirectiveId::kIncludeRotWord, "SubRot_sCode", "", {"TEXT SubRot_sAddr R"}},
    {DirectiveId::kIncludeMirCode, "sMirrorReset", "", {"TEXT sMirrorXY MXY"}},
    {DirectiveId::kIncludeMirResetCode, "sMirrorReset", "NONMODAL", {}},
    {DirectiveId::kIncludeRotWord, "SubRot_sResetCode", "", {"TEXT SubRot_sAddr R"}},
    {DirectiveId::kIncludeRotResetWord, "SubRot_sResetCode", "NONMODAL", {}},
};

// A tuning in which as many directives as possible write something.
const Lines kBase = {
    "BOOL bUseSubs true",
    "BOOL bOutModeAbs true",
    "BOOL bSubsInAbs false",
    "BOOL bUseText true",
    "BOOL bDefaultTool true",
    "INT nNumOfTools 2",
    "BOOL Speed_b4 true",
    "BOOL Speed_b2Params true",
    "TEXT T1_Speed_P1_sV1 7",
    "TEXT T1_Speed_P1_sV2 7",
    "TEXT T1_Speed_P1_sV3 7",
    "TEXT T1_Speed_P1_sV4 7",
    "TEXT T1_Speed_P2_sV1 8",
    "TEXT T1_Speed_P2_sV2 8",
    "TEXT T1_Speed_P2_sV3 8",
    "TEXT T1_Speed_P2_sV4 8",
    "BOOL T1_Fly_bUse true",
    "REAL T1_Fly_rDEG_MaxAngDeviation 20",
    "BOOL SubNum_bUseSequence true",
    "BOOL Speed_bModal false",
};

// A main program with lines in all directions, arcs in both senses, a text, two tools, and calls with all mirrors and
// a rotation. Main and sub-program differ in grain and side.
void MakeJob() {
    const auto line = [](short tool, double x1, double y1, double x2, double y2) {
        GBrn_AddLine(tool, tool, 0.5, x1, y1, x2, y2, 0.0, 0);
    };
    const auto arc = [](double x1, double y1, double x2, double y2, double x, double y, double radius) {
        GBrn_AddArc(1, 1, 0.5, x1, y1, x2, y2, x, y, radius, 0.0, 0);
    };
    const auto call = [](double rotation, int mirror_x, int mirror_y) {
        GBrn_AddInclude(L"PART", 50.0, 50.0, 0.0, 0.0, rotation, mirror_x, mirror_y);
    };
    GBrn_SetBlankSize(300.0, 200.0);
    GBrn_StartMain(L"MAIN", 150.0, 100.0, 1, 1);
    line(1, 10, 10, 20, 10);
    line(1, 20, 10, 30, 10);
    line(1, 30, 10, 30, 20);
    line(1, 30, 20, 10, 20);
    line(1, 10, 20, 10, 10);
    arc(10, 10, 20, 20, 20, 10, 10.0);
    arc(20, 20, 30, 10, 30, 20, -10.0);
    line(2, 80, 10, 95, 35);
    GBrn_AddText(1, 1, 40.0, 40.0, 60.0, 40.0, 0.0, 0.5, 0.0, 0.0, 5.0, L"text e 1 3");
    call(0, 0, 0);
    call(0, 1, 0);
    call(0, 0, 1);
    call(0, 1, 1);
    call(1.5, 0, 0);
    call(0, 0, 0);
    GBrn_StartSub(L"PART", 5.0, 5.0, 0, 0);
    line(1, 0, 0, 10, 0);
    arc(10, 0, 10, 10, 10, 5, 5.0);
}

// The NC text of a tuning whose templates hold nothing but one directive; of those in `events`, unless it is empty.
std::string RunOf(const std::string& word, EventSet events, std::initializer_list<const Lines*> options,
                  const std::string& last_line) {
    CHostSession session(kBase);
    for (const EventInfo& event : TemplateEvents()) {
        if (!events.IsEmpty() && !events.Has(&event)) continue;
        const std::string prefix = event.per_tool ? "T1_" : "";
        session.Tune("MULTI " + prefix + std::string(event.prefix) + "tTmpl NNUL :<" + word + ">");
    }
    for (const Lines* const lines : options) {
        for (const std::string& line : *lines) session.Tune(line);
    }
    session.Tune(last_line);
    MakeJob();
    return session.Run();
}

Lines ValuesOf(const KeyInfo& info) {
    switch (info.kind) {
        case KeyKind::kBool: return {"true", "false"};
        case KeyKind::kReal: return {"1.0", "2.0"};
        default: return {"1", "3"};
    }
}

// One use of a directive, in which an option has one value and then another.
struct Trial {
    DirectiveId directive;
    std::string keywords;
    const KeyInfo* key;
    bool of_tool;
    EventSet events = {};

    // Whether the text differs.
    bool Acts(const Lines& options) const {
        const std::string word = std::string(Info(directive).name) + (keywords.empty() ? "" : "[" + keywords + "]");
        const std::string start =
            std::string(TypeWord(key->kind)).append(of_tool ? " T1_" : " ").append(key->name).append(" ");
        const Lines values = ValuesOf(*key);
        Lines extra;
        for (const Extra& one : kExtras) {
            if (one.directive == directive && one.keys.Covers(*key)) extra = one.lines;
        }
        return RunOf(word, events, {&extra, &options}, start + values[0]) !=
               RunOf(word, events, {&extra, &options}, start + values[1]);
    }
};

Trial TrialOf(const DirectiveRead& row) {
    Trial trial{row.directive, "", &row.key.Info(), row.of_tool, row.events};
    for (const Extra& one : kExtras) {
        if (one.directive == row.directive && one.keys.Covers(row.key.Info())) trial.keywords = one.keywords;
    }
    return trial;
}

std::string NameOf(const DirectiveRead& row) {
    std::string name = std::string(Info(row.directive).name) + " " + std::string(row.key->name);
    name += " under condition " + std::to_string(static_cast<int>(row.condition));
    return row.of_tool ? name + " of the tool" : name;
}

// Whether `condition` holds in the tuning of the trials with these options.
bool HoldsWith(Condition condition, const Lines& options) {
    Lines all = kBase;
    all.insert(all.end(), options.begin(), options.end());
    const std::vector<std::string_view> lines(all.begin(), all.end());
    return Holds(condition, CPlacedTuning(lines), "T1_");
}

// Whether another row of the same kind says that the option is read all the same.
bool IsReadElsewhere(const DirectiveRead& row, const Lines& options) {
    const auto rows = DirectiveReads();
    return std::any_of(rows.begin(), rows.end(), [&](const DirectiveRead& other) {
        return &other != &row && other.directive == row.directive && other.key == row.key &&
               other.of_tool == row.of_tool && other.events == row.events && HoldsWith(other.condition, options);
    });
}

TEST(DirectiveReads, EachOptionActsWhereItsConditionHolds) {
    for (const DirectiveRead& row : DirectiveReads()) {
        const Lines& on = SwitchOf(row.condition).on;
        EXPECT_TRUE(HoldsWith(row.condition, on)) << NameOf(row);
        EXPECT_TRUE(TrialOf(row).Acts(on)) << NameOf(row) << ": the directive does not read it";
    }
}

TEST(DirectiveReads, NoOptionActsWhereItsConditionFails) {
    for (const DirectiveRead& row : DirectiveReads()) {
        const Lines& off = SwitchOf(row.condition).off;
        if (off.empty() || IsReadElsewhere(row, off)) continue;
        EXPECT_FALSE(HoldsWith(row.condition, off)) << NameOf(row);
        EXPECT_FALSE(TrialOf(row).Acts(off)) << NameOf(row) << ": the directive reads it all the same";
    }
}

// An option that a directive wants acts whatever else the tuning says, as long as its condition holds.
TEST(DirectiveReads, NoOtherConditionIsNeeded) {
    for (const DirectiveRead& row : DirectiveReads()) {
        if (row.when_empty == WhenEmpty::kFine) continue;
        for (const Switch& one : kSwitches) {
            for (const Lines& lines : {one.on, one.off}) {
                Lines options = SwitchOf(row.condition).on;
                options.insert(options.end(), lines.begin(), lines.end());
                const bool loses_texts =
                    row.condition == Condition::kText && !HoldsWith(Condition::kAbsoluteMain, options);
                if (loses_texts || !HoldsWith(row.condition, options)) continue;
                EXPECT_TRUE(TrialOf(row).Acts(options))
                    << NameOf(row) << " needs condition " << static_cast<int>(one.condition);
            }
        }
    }
}

// A part is left out by the keywords that speak against it, and by no others.
TEST(DirectiveReads, KeywordsLeaveOutTheirParts) {
    for (const DirectiveRead& row : DirectiveReads()) {
        for (const Keyword keyword : {Keyword::kA1, Keyword::kA2, Keyword::kData}) {
            Trial trial = TrialOf(row);
            if (!Info(row.directive).keywords.Has(keyword) || !trial.keywords.empty()) continue;
            trial.keywords = KeywordTable()[static_cast<size_t>(keyword)].name;
            EXPECT_EQ(trial.Acts(SwitchOf(row.condition).on), row.IsWanted(KeywordSet(keyword)))
                << NameOf(row) << " with " << trial.keywords;
        }
    }
}

TEST(DirectiveReads, NoOtherTextActs) {
    const auto rows = DirectiveReads();
    for (const DirectiveInfo& directive : DirectiveTable()) {
        for (const KeyInfo& info : KeyCatalogue()) {
            const bool of_tool = info.scope == KeyScope::kTool;
            const auto is_its_row = [&](const DirectiveRead& row) {
                return row.directive == directive.id && row.key->name == info.name && row.of_tool == of_tool;
            };
            if (info.kind != KeyKind::kText || std::any_of(rows.begin(), rows.end(), is_its_row)) continue;
            EXPECT_FALSE((Trial{directive.id, "", &info, of_tool}.Acts(kBusy)))
                << directive.name << " reads " << info.name;
        }
    }
}

}  // namespace
}  // namespace brindle
