// The page "Codes": the fixed codes of the controller, and fly mode.
#include "editor/pages/params_pages.h"

#include <optional>

#include "editor/controls/per_tool_list_box.h"
#include "editor/pages/table_page.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

constexpr std::string_view kUnitCodes = "Units    (@UnitsCode)";
constexpr std::string_view kModeCodes = "Abs/Inc Mode    (@AbsIncCode)";
constexpr std::string_view kInterpolation = "Interpolation Code    (@InterpCode)";
constexpr std::string_view kGrain = "Flute/Grain Code    (@FluteCode)";
constexpr std::string_view kSide = "Design Side Code    (@SideCode)";
constexpr std::string_view kFlyCodes = "Fly Mode   (@FlyModeCode)";
constexpr std::string_view kFlyOff = "Fly Mode   (@FlyModeCode)|Fly mode OFF code applies to:";
constexpr std::string_view kFlyPerTool = "Fly Mode   (@FlyModeCode)|Per tool";
constexpr std::string_view kInterpolationTools = "tools with interpolation codes";
constexpr std::string_view kFlyTools = "tools with fly mode";

constexpr PageRow kCodeRows[] = {
    {kText, "sInchCode", kUnitCodes, "&Inches code:"},
    {kText, "sMetricCode", kUnitCodes, "&Metric code:"},
    {kCheck, "bUCodeModal", kUnitCodes, "&Modal"},
    {kText, "sAbsCode", kModeCodes, "&Absolute code:"},
    {kText, "sIncCode", kModeCodes, "&Incremental code:"},
    {kCheck, "bMCodeModal", kModeCodes, "&Modal"},
    {kCheck, "bToolDependInterp", kInterpolation, "&Codes are tool dependent"},
    {kCheck, "bICodesModal", kInterpolation, "&Modal"},
    {kList, kInterpolationTools, kInterpolation, "&Per tool:"},
    {kText, "sRTCode", kInterpolation, "&Rapid Traverse:", kPerTool, kBeside},
    {kText, "sLTCode", kInterpolation, "&Linear:", kPerTool, kBeside},
    {kText, "sCWCode", kInterpolation, "&Clockwise (CW):", kPerTool, kBeside},
    {kText, "sCCWCode", kInterpolation, "&Counter Clockwise (CCW):", kPerTool, kBeside},
    {kReal, "rMinRapidMoveMM", kInterpolation, "Minimum move distance for &rapid traverse:", kLength | kUnitPlaces},
    {kUnits, "rMinRapidMoveMM", kInterpolation, "", 0, kBeside},
    {kText, "sHorizCode", kGrain, "&Horizontal code:", 0, kNewColumn},
    {kText, "sVertCode", kGrain, "&Vertical code:"},
    {kText, "sInsideCode", kSide, "&Inside code:"},
    {kText, "sOutsideCode", kSide, "&Outside code:"},
    {kCheck, "Fly_bSupport", kFlyCodes, "&Support fly mode"},
    {kText, "Fly_sOnCode", kFlyCodes, "Fly mode O&N code:"},
    {kText, "Fly_sOffCode", kFlyCodes, "Fly mode O&FF code:"},
    {kRadio, "Fly_bForPreceeding", kFlyOff, "&Preceding block"},
    {kRadio, "Fly_bForFollowing", kFlyOff, "&Following block"},
    {kList, kFlyTools, kFlyPerTool, ""},
    {kCheck, "Fly_bUse", kFlyPerTool, "Use &fly mode", kPerTool, kBeside},
    {kReal, "Fly_rDEG_MaxAngDeviation", kFlyPerTool, "for &devation angle <=", kPerTool | kUnitPlaces, kBeside},
    {.kind = kReal,
     .key = "Fly_rMM_Threshold",
     .group = kFlyCodes,
     .label = "Min &radius:",
     .flags = kLength | kUnitPlaces,
     .inch_default = 0.25},
    {kUnits, "Fly_rMM_Threshold", kFlyCodes, "", 0, kBeside},
};

void SeedTemplate(CKVItemContainer& tuning, std::string_view key) {
    TemplateLines lines;
    tuning.GetMulti(key, lines);
    if (lines.empty()) tuning.SetMulti(key, {{{}, "<@FlyModeCode>"}});
}

// A tuning may hold codes of interpolation for all tools and others for each tool. The page edits those that a run
// takes, and leaves the others alone.
class CNCParamsUnitCodes : public CNCTablePage {
public:
    explicit CNCParamsUnitCodes(const PageContext& context)
        : CNCTablePage(context, "Codes", Mark::kAtActivation, kCodeRows) {}

    void UpdateControlStates() override {
        table().Show({kInterpolationTools}, table().IsChecked("bToolDependInterp"));
        table().Enable({"Fly_bUse", "Fly_sOnCode", "Fly_sOffCode", "Fly_bForPreceeding", "Fly_bForFollowing",
                        "Fly_rMM_Threshold", kFlyTools},
                       table().IsChecked("Fly_bSupport"));
        table().Enable({"Fly_rDEG_MaxAngDeviation"}, table().IsChecked("Fly_bUse"));
    }

    void OnBoundButtonClicked(CKVItemButton& control) override {
        if (&control == &table().Find<CKVItemButton>("bToolDependInterp")) BindInterpolation();
    }

protected:
    void CreateControls() override {
        CNCTablePage::CreateControls();
        using enum CPerToolListBox::Subordinates;
        interpolation_tools_.emplace(table().List(kInterpolationTools), kLeftOut);
        interpolation_tools_->control().selected.Set([this] { BindInterpolation(); });
        fly_tools_.emplace(table().List(kFlyTools), kLeftOut);
        fly_tools_->control().selected.Set([this] { BindFlyMode(); });
    }

    void BindControls() override {
        CNCTablePage::BindControls();
        fly_tools_->Fill(GetOptions());
        BindFlyMode();
        interpolation_tools_->Fill(GetOptions());
        BindInterpolation();
    }
    // With fly mode the templates before and after a change of it hold at least its code.
    void OnLeave() override {
        CBrindleOpts* const tuning = GetOptions();
        if (!IsTrue(tuning, "Fly_bSupport")) return;
        SeedTemplate(*tuning, "Fly_PreCheck_tTmpl");
        SeedTemplate(*tuning, "Fly_PostCheck_tTmpl");
    }

private:
    void BindInterpolation() {
        const bool dependent = table().IsChecked("bToolDependInterp");
        std::string prefix = dependent ? interpolation_tools_->GetToolPrefix() : std::string();
        if (IsTrue(GetOptions(), prefix + "bToolUnused")) prefix.clear();
        const bool has_codes = !dependent || !prefix.empty();
        table().Enable({"sRTCode", "sLTCode", "sCWCode", "sCCWCode"}, has_codes);
        if (has_codes)
            table().BindKeys({"sRTCode", "sLTCode", "sCWCode", "sCCWCode"}, GetOptions(), prefix, IsInches());
    }

    void BindFlyMode() {
        const std::string prefix = fly_tools_->GetToolPrefix();
        const bool is_tool = !prefix.empty() && !IsTrue(GetOptions(), prefix + "bToolSubordinate");
        if (is_tool) {
            table().BindKeys({"Fly_bUse", "Fly_rDEG_MaxAngDeviation"}, GetOptions(), prefix, IsInches());
        } else {
            table().Unbind({"Fly_bUse", "Fly_rDEG_MaxAngDeviation"});
        }
        table().Enable({"Fly_bUse"}, is_tool);
        table().Enable({"Fly_rDEG_MaxAngDeviation"}, is_tool && table().IsChecked("Fly_bUse"));
    }

    std::optional<CPerToolListBox> interpolation_tools_;
    std::optional<CPerToolListBox> fly_tools_;
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeCodesPage(const PageContext& context) {
    return std::make_unique<CNCParamsUnitCodes>(context);
}

}  // namespace brindle
