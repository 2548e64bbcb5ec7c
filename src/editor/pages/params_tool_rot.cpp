// The page "ToolRot": how the controller turns tools, and the rotation of each tool.
#include "editor/pages/params_pages.h"

#include "editor/pages/per_tool_page.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

constexpr std::string_view kPositive = "Positive value indicates:";
constexpr std::string_view kToolData = "Per tool data";

constexpr PageRow kToolRotationRows[] = {
    {kText, "ToolRot_sAddr", "", "&Address:"},
    {kReal, "ToolRot_rFactor", "", "&Factor by:", kSixPlaces | kNoZero},
    {kDecimals, "ToolRot_nNDec", "", "&Round to:"},
    {kCheck, "ToolRot_bModal", "", "Modal"},
    {kRadio, "ToolRot_bPosIsCW", kPositive, "&CW"},
    {kRadio, "ToolRot_bPosIsCCW", kPositive, "CC&W", 0, kBeside},
    {kReal, "ToolRot_rDEG_Offset", "", "&Measure angles from:", kUnitPlaces},
    {kLabel, "ToolRot_rDEG_Offset", "", "degrees from axis 1", 0, kBeside},
    {kCheck, "ToolRot_bAlwaysAbs", "", "Always &absolute"},
    {kCheck, "ToolRot_bUseSign", "", "Sign indicates &direction of travel"},
    {kText, "sTangAuxCode1", "", "Aux. Code 1:"},
    {kText, "sTangAuxCode2", "", "Aux. Code 2:"},
    {kList, CNCPerToolPage::kTools, kToolData, "", 0, kNewColumn},
    {kCheck, "bTangential", kToolData, "&Tangential tool", kPerTool, kBeside},
    {kCheck, "b180Symmetry", kToolData, "180 &Symmetry", kPerTool, kBeside},
    {kReal, "rLiftAngDEG", kToolData, "&Lift angle:", kPerTool | kSixPlaces, kBeside},
};

class CNCParamsToolRot : public CNCPerToolPage {
public:
    explicit CNCParamsToolRot(const PageContext& context)
        : CNCPerToolPage(context, "ToolRot", Mark::kAtChange, kToolRotationRows, Subordinates::kLeftOut) {}

    void UpdateControlStates() override {
        table().Enable({"ToolRot_bUseSign"}, table().IsChecked("ToolRot_bAlwaysAbs"));
        const bool has_tool = tools().GetSelected() >= 0;
        const bool tangential = table().IsChecked("bTangential");
        table().Enable({"bTangential", "rLiftAngDEG"}, has_tool);
        table().Enable({"b180Symmetry"}, has_tool && tangential);
        table().Show({"rLiftAngDEG"}, tangential);
    }
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeToolRotationPage(const PageContext& context) {
    return std::make_unique<CNCParamsToolRot>(context);
}

}  // namespace brindle
