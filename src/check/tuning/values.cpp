#include <algorithm>

#include "check/tuning/checks.h"
#include "check/tuning/conditions.h"
#include "check/tuning/decimals.h"

namespace brindle {
namespace {

// A combination of options that can't be meant, reported at one of them.
struct OptionCheck {
    Rule rule;
    KeyRef key;
    bool (*is_odd)(const CBrindleOpts& options);
    std::string_view text;
};

bool IsEmpty(const CBrindleOpts& options, KeyRef key) { return options.ReadText(key).empty(); }

constexpr int32_t kFewBytes = 100;

// clang-format off
constexpr OptionCheck kOptionChecks[] = {
    {Rule::kNoCommentText, Key("bErrorsAsComments"), [](const CBrindleOpts& o) { return o.ReadBool(Key("bErrorsAsComments")) && IsEmpty(o, Key("sOpenComment")); },
     "bErrorsAsComments has no effect: sOpenComment is empty"},
    {Rule::kNoBlockEnd, Key("bBlockDelimStd"), [](const CBrindleOpts& o) { return !o.ReadBool(Key("bBlockDelimStd")) && IsEmpty(o, Key("sBlockDelim")); },
     "blocks run together in one line: bBlockDelimStd is false and sBlockDelim empty"},
    {Rule::kNoSegmentLimit, Key("bUseFileSeg"), [](const CBrindleOpts& o) { return o.ReadBool(Key("bUseFileSeg")) && o.ReadInt(Key("nMaxBytes")) < 0; },
     "bUseFileSeg has no effect: nMaxBytes sets no limit"},
    {Rule::kSmallSegments, Key("nMaxBytes"), [](const CBrindleOpts& o) {
         return o.ReadBool(Key("bUseFileSeg")) && o.ReadInt(Key("nMaxBytes")) >= 0 && o.ReadInt(Key("nMaxBytes")) < kFewBytes;
     }, "segments of less than 100 bytes: a new one begins every few blocks"},
    {Rule::kTextWithoutTool, Key("bUseText"), [](const CBrindleOpts& o) { return o.ReadBool(Key("bUseText")) && !o.ReadBool(Key("bDefaultTool")); },
     "the texts of drawings are left out: they need the default tool, and bDefaultTool is false"},
    {Rule::kNoPrimaryTool, Key("bUsePrimaryTool"), [](const CBrindleOpts& o) { return o.ReadBool(Key("bUsePrimaryTool")) && o.ToolKeyPrefix(o.ReadInt(Key("nPrimaryTool")), false).empty(); },
     "bUsePrimaryTool selects no tool: nPrimaryTool is the number of no tool in use"},
    {Rule::kNoCentreMode, Key("bInAbsCenFromStart"), [](const CBrindleOpts& o) {
         return !o.ReadBool(Key("bInAbsCenFromStart")) && !o.ReadBool(Key("bInAbsCenFromEnd")) && !o.ReadBool(Key("bInAbsCenIsAbs"));
     }, "in absolute mode all centre words are 0: no way of measuring the centre is chosen"},
    {Rule::kNoCentreMode, Key("bInIncCenFromStart"), [](const CBrindleOpts& o) { return !o.ReadBool(Key("bInIncCenFromStart")) && !o.ReadBool(Key("bInIncCenFromEnd")); },
     "in incremental mode all centre words are 0: no way of measuring the centre is chosen"},
    {Rule::kNoSpeedFactor, Key("Speed_bFactor"), [](const CBrindleOpts& o) { return o.ReadBool(Key("Speed_bFactor")) && IsEmpty(o, Key("Speed_sFactor")); },
     "Speed_bFactor has no effect: Speed_sFactor is empty"},
};
// clang-format on

// Templates whose absence loses what is cut.
struct TemplateCheck {
    EventRef event;
    Condition condition;
    std::string_view text;
    std::string_view way_out = {};
};

constexpr TemplateCheck kTemplateChecks[] = {
    {Event("Line_"), Condition::kAlways, "there is no Line_tTmpl: lines are not written"},
    {Event("Arc_"), Condition::kAlways, "there is no Arc_tTmpl: arcs are not written"},
    {Event("Move_"), Condition::kStartApart, "there is no Move_tTmpl: moves are not written"},
    {Event("Text_"), Condition::kText, "there is no Text_tTmpl though bUseText is true: texts are not written"},
    {Event("SubCall_"), Condition::kSubs,
     "there is no SubCall_tTmpl though bUseSubs is true, as it is by default: calls are not written",
     "false writes out their records"},
};

bool IsZero(double value) { return value == 0.0; }
bool IsBelowSmallestTolerance(double value) { return value < 0.001; }

// Numbers of the right kind that can't be meant.
struct NumberCheck {
    Rule rule;
    KeyPattern keys;
    bool (*is_odd)(double value);
    std::string_view text;
};

constexpr NumberCheck kNumberChecks[] = {
    {Rule::kZeroFactor, "*rFactor*", IsZero, "a factor of 0 makes all values 0"},
    {Rule::kZeroFactor, "rSubArcFactor", IsZero, "a factor of 0 makes all values 0"},
    {Rule::kZeroFactor, "SubNum_nSubFactor", IsZero, "a factor of 0 gives all sub-programs the same number"},
    {Rule::kZeroStep, "nNWordBigInc", IsZero, "with a step of 0 block numbers stay the same"},
    {Rule::kZeroStep, "nNWordSmInc", IsZero, "with a step of 0 block numbers stay the same"},
    {Rule::kSmallTolerance, "rFacetTolMM", IsBelowSmallestTolerance,
     "facets are cut with a tolerance of 0.001 at least"},
};

constexpr KeyPattern kDecimals = "*NDec*";

void CheckNumber(const PlacedItem& item, double value, CDiagnostics& diagnostics) {
    const KeyInfo& info = *item.match.info;
    const Place place = item.line->PlaceOf(item.line->words[2]);
    if (kDecimals.Covers(info)) {
        std::string fault = FaultOfDecimals(value);
        if (!fault.empty()) diagnostics.Add(Rule::kBadDecimals, place, std::move(fault));
    }
    for (const NumberCheck& check : kNumberChecks) {
        if (check.keys.Covers(info) && check.is_odd(value)) diagnostics.Add(check.rule, place, std::string(check.text));
    }
}

void CheckNumbers(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    for (const PlacedItem& item : tuning.items()) {
        int32_t whole = 0;
        double value = 0.0;
        if (!item.HasRightKind() || !WhyUnread(tuning, item.match).empty()) continue;
        if (tuning.options().GetInt(item.key, whole)) {
            value = whole;
        } else if (!tuning.options().GetReal(item.key, value)) {
            continue;
        }
        CheckNumber(item, value, diagnostics);
    }
}

void CheckMissingTemplates(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    bool has_any = false;
    for (const PlacedText& text : tuning.texts()) has_any |= text.InTemplate();
    if (!has_any) return diagnostics.Add(Rule::kNoTemplates, {}, "there is no template: a run writes nothing");
    for (const TemplateCheck& check : kTemplateChecks) {
        TemplateLines lines;
        if (!Holds(check.condition, tuning)) continue;
        if (tuning.options().GetMulti(TemplateKey(check.event), lines) && !lines.empty()) continue;
        diagnostics.Add({.rule = Rule::kMissingTemplate,
                         .message = std::string(check.text),
                         .way_out = std::string(check.way_out),
                         .subject = TemplateKey(check.event)});
    }
}

bool WritesAxisNumbers(const DirectiveUse& use) {
    constexpr DirectiveId kWriters[] = {DirectiveId::kStartPtWords, DirectiveId::kEndPtWords,
                                        DirectiveId::kIncludePtWords};
    return std::find(std::begin(kWriters), std::end(kWriters), use.directive->id) != std::end(kWriters);
}

// The default of the grid to which numbers are rounded is not that of the decimals with which they are printed.
void CheckAbsentDecimals(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    const bool has_numbers =
        std::any_of(tuning.directives().begin(), tuning.directives().end(),
                    [&tuning](const DirectiveUse& use) { return WritesAxisNumbers(use) && IsRead(tuning, *use.text); });
    if (!has_numbers || !Holds(Condition::kMillimetres, tuning)) return;
    std::string missing;
    for (const KeyRef key : {Key("MM_AX1_nNDec"), Key("MM_AX2_nNDec")}) {
        int32_t decimals = 0;
        if (tuning.options().GetInt(key->name, decimals)) continue;
        missing.append(missing.empty() ? "there is no " : " and no ").append(key->name);
    }
    if (missing.empty()) return;
    diagnostics.Add(Rule::kNoDecimals, {}, missing + ": numbers are rounded to 2 decimals, but printed with 3");
}

}  // namespace

void CheckValues(const CPlacedTuning& tuning, CDiagnostics& diagnostics) {
    CheckNumbers(tuning, diagnostics);
    for (const OptionCheck& check : kOptionChecks) {
        const PlacedItem* const item = tuning.Find(check.key->name);
        if (item == nullptr || !check.is_odd(tuning.options())) continue;
        diagnostics.Add(check.rule, item->KeyPlace(), std::string(check.text));
    }
    CheckMissingTemplates(tuning, diagnostics);
    CheckAbsentDecimals(tuning, diagnostics);
}

}  // namespace brindle
