#include "check/number_words.h"
#include "check/tuning/check.h"
#include "check/tuning/conditions.h"
#include "check/tuning/decimals.h"

namespace brindle {
namespace {

// A combination of options that can't be meant, told at one of them.
struct OptionCheck {
    std::string_view key;
    bool (*is_odd)(const CBrindleOpts& options);
    std::string_view text;
};

bool IsEmpty(const CBrindleOpts& options, KeyRef key) { return options.ReadText(key).empty(); }

constexpr int32_t kFewBytes = 100;

// clang-format off
constexpr OptionCheck kOptionChecks[] = {
    {"bErrorsAsComments", [](const CBrindleOpts& o) { return o.ReadBool(Key("bErrorsAsComments")) && IsEmpty(o, Key("sOpenComment")); },
     "bErrorsAsComments has no effect: sOpenComment is empty"},
    {"bBlockDelimStd", [](const CBrindleOpts& o) { return !o.ReadBool(Key("bBlockDelimStd")) && IsEmpty(o, Key("sBlockDelim")); },
     "blocks run together in one line: bBlockDelimStd is false and sBlockDelim empty"},
    {"bUseFileSeg", [](const CBrindleOpts& o) { return o.ReadBool(Key("bUseFileSeg")) && o.ReadInt(Key("nMaxBytes")) < 0; },
     "bUseFileSeg has no effect: nMaxBytes sets no limit"},
    {"nMaxBytes", [](const CBrindleOpts& o) {
         return o.ReadBool(Key("bUseFileSeg")) && o.ReadInt(Key("nMaxBytes")) >= 0 && o.ReadInt(Key("nMaxBytes")) < kFewBytes;
     }, "segments of less than 100 bytes: a new one begins every few blocks"},
    {"bUseText", [](const CBrindleOpts& o) { return o.ReadBool(Key("bUseText")) && !o.ReadBool(Key("bDefaultTool")); },
     "the texts of drawings are left out: they need the default tool, and bDefaultTool is false"},
    {"bUsePrimaryTool", [](const CBrindleOpts& o) { return o.ReadBool(Key("bUsePrimaryTool")) && o.ToolKeyPrefix(o.ReadInt(Key("nPrimaryTool")), false).empty(); },
     "bUsePrimaryTool selects no tool: nPrimaryTool is the number of no tool in use"},
    {"bInAbsCenFromStart", [](const CBrindleOpts& o) {
         return !o.ReadBool(Key("bInAbsCenFromStart")) && !o.ReadBool(Key("bInAbsCenFromEnd")) && !o.ReadBool(Key("bInAbsCenIsAbs"));
     }, "in absolute mode all centre words are 0: no way of measuring the centre is chosen"},
    {"bInIncCenFromStart", [](const CBrindleOpts& o) { return !o.ReadBool(Key("bInIncCenFromStart")) && !o.ReadBool(Key("bInIncCenFromEnd")); },
     "in incremental mode all centre words are 0: no way of measuring the centre is chosen"},
    {"Speed_bFactor", [](const CBrindleOpts& o) { return o.ReadBool(Key("Speed_bFactor")) && IsEmpty(o, Key("Speed_sFactor")); },
     "Speed_bFactor has no effect: Speed_sFactor is empty"},
};
// clang-format on

// Templates whose absence loses what is cut.
struct TemplateCheck {
    std::string_view key;
    const Condition* condition;
    std::string_view text;
};

constexpr TemplateCheck kTemplateChecks[] = {
    {"Line_tTmpl", &kAlways, "there is no Line_tTmpl: lines are not written"},
    {"Arc_tTmpl", &kAlways, "there is no Arc_tTmpl: arcs are not written"},
    {"Move_tTmpl", &kStartApart, "there is no Move_tTmpl: moves are not written"},
    {"Text_tTmpl", &kText, "there is no Text_tTmpl though bUseText is true: texts are not written"},
    {"SubCall_tTmpl", &kSubs,
     "there is no SubCall_tTmpl though bUseSubs is true, as it is by default: calls are not written (false writes out "
     "their "
     "records)"},
};

// What a number of the right kind can't be meant to be; empty if it can.
std::string FaultOfNumber(std::string_view name, double value) {
    if (name.find("nNDec") != name.npos || name == "nSubArcNDec") return FaultOfDecimals(value);
    if (value == 0.0 && (name.ends_with("rFactor") || name.find("rFactor_") != name.npos || name == "rSubArcFactor")) {
        return "a factor of 0 makes all values 0";
    }
    if (value == 0.0 && name == "SubNum_nSubFactor") return "a factor of 0 gives all sub-programs the same number";
    if (value == 0.0 && (name == "nNWordBigInc" || name == "nNWordSmInc"))
        return "with a step of 0 block numbers stay the same";
    if (value < 0.001 && name == "rFacetTolMM") return "facets are cut with a tolerance of 0.001 at least";
    return {};
}

void CheckNumbers(const CCheckedTuning& tuning, CFindings& findings) {
    for (const CheckedItem& item : tuning.items()) {
        int32_t whole = 0;
        double value = 0.0;
        if (!item.HasRightKind() || !WhyUnread(tuning, item.match).empty()) continue;
        if (tuning.options().GetInt(item.key, whole)) {
            value = whole;
        } else if (!tuning.options().GetReal(item.key, value)) {
            continue;
        }
        std::string fault = FaultOfNumber(item.match.info->name, value);
        if (!fault.empty()) AddAtWord(findings, Severity::kWarning, *item.line, item.line->words[2], std::move(fault));
    }
}

void CheckMissingTemplates(const CCheckedTuning& tuning, CFindings& findings) {
    const auto add = [&findings](std::string_view text) {
        findings.Add(Severity::kWarning, 0, 0, 0, std::string(text));
    };
    bool has_any = false;
    for (const CheckedText& text : tuning.texts()) has_any |= text.InTemplate();
    if (!has_any) return add("there is no template: a run writes nothing");
    for (const TemplateCheck& check : kTemplateChecks) {
        TemplateLines lines;
        if (!check.condition->holds(tuning, {})) continue;
        if (!tuning.options().GetMulti(check.key, lines) || lines.empty()) add(check.text);
    }
}

}  // namespace

void CheckValues(const CCheckedTuning& tuning, CFindings& findings) {
    CheckNumbers(tuning, findings);
    for (const OptionCheck& check : kOptionChecks) {
        const CheckedItem* const item = tuning.Find(check.key);
        if (item == nullptr || !check.is_odd(tuning.options())) continue;
        AddAtKey(findings, Severity::kWarning, *item, std::string(check.text));
    }
    CheckMissingTemplates(tuning, findings);
}

}  // namespace brindle
