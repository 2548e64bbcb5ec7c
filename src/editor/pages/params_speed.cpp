// The page "Speed": the words of speeds, and the speeds of each tool.
#include "editor/pages/params_pages.h"

#include "editor/pages/per_tool_page.h"
#include "editor/pages/speed_rows.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

// What is side by side has an empty heading in common.
constexpr std::string_view kFormat = "|Format";
constexpr std::string_view kOutputAs = "|Format|Output speed as:";
constexpr std::string_view kNumber = "|Number of speed values";
constexpr std::string_view kUse = "|Use of speed values";
constexpr std::string_view kParameters = "|Speed parameters";
constexpr std::string_view kParameterCount = "|Speed parameters|# of parameters:";
constexpr std::string_view kSmallRadius = "|Small radius factor formula";
constexpr std::string_view kToolList = "|Per tool|";
constexpr std::string_view kProRata = "example of pro rata";

constexpr auto kOwnRows = std::to_array<PageRow>({
    {kRadio, "Speed_bAsValue", kOutputAs, "&Value"},
    {kRadio, "Speed_bAsExpress", kOutputAs, "&Expression"},
    {kCheck, "Speed_bModal", kFormat, "&Modal"},
    {kCheck, "Speed_bFactor", kFormat, "&Factor speed by"},
    {kText, "Speed_sFactor", kFormat, "", 0, kBeside},
    {kDecimals, "Speed_nNDec", kFormat, "&Round to:"},
    {kRadio, "Speed_b1", kNumber, "&Single value", 0, kBeside},
    {kRadio, "Speed_b2", kNumber, "&One value per axis"},
    {kRadio, "Speed_b4", kNumber, "&Two values per axis"},
    {kRadio, "Speed_bNearest1", kUse, "&Nearest axis value", 0, kBeside},
    {kRadio, "Speed_bNearest2", kUse, "&Pro rata between axes"},
    {kLabel, kProRata, kUse, "(e.g.  0.10 * S1 + 0.90 * S2 )"},
    {kRadio, "Speed_b1Param", kParameterCount, "&1"},
    {kRadio, "Speed_b2Params", kParameterCount, "&2", 0, kBeside},
    {kText, "Speed_sParam1Addr", kParameters, "Parameter &1:"},
    {kText, "Speed_sParam2Addr", kParameters, "Parameter &2:"},
    {kLabel, "SRF_rThreshold5MM", kSmallRadius, "5%", 0, kBeside},
    {kReal, "SRF_rThreshold5MM", kSmallRadius, "<=", kLength | kUnitPlaces, kBeside},
    {kUnits, "SRF_rThreshold5MM", kSmallRadius, "", 0, kBeside},
    {kLabel, "SRF_rThreshold25MM", kSmallRadius, "25% - 5%"},
    {kReal, "SRF_rThreshold25MM", kSmallRadius, "<=", kLength | kUnitPlaces, kBeside},
    {kUnits, "SRF_rThreshold25MM", kSmallRadius, "", 0, kBeside},
    {kLabel, "SRF_rThreshold50MM", kSmallRadius, "50% - 25%"},
    {kReal, "SRF_rThreshold50MM", kSmallRadius, "<=", kLength | kUnitPlaces, kBeside},
    {kUnits, "SRF_rThreshold50MM", kSmallRadius, "", 0, kBeside},
    {kLabel, "SRF_rThreshold100MM", kSmallRadius, "100% - 50%"},
    {kReal, "SRF_rThreshold100MM", kSmallRadius, "<=", kLength | kUnitPlaces, kBeside},
    {kUnits, "SRF_rThreshold100MM", kSmallRadius, "", 0, kBeside},
    {kList, CNCPerToolPage::kTools, kToolList, ""},
});
constexpr auto kSpeedRows =
    JoinRows(kOwnRows, SpeedValueRows("|Per tool|Speed values|Param 1", "|Per tool|Speed values|Param 2", kBeside),
             ArcSpeedRows("|Per tool|Arcs", "Use small radii factor &formula", kNewRow));

class CNCParamsSpeed : public CNCPerToolPage {
public:
    explicit CNCParamsSpeed(const PageContext& context)
        : CNCPerToolPage(context, "Speed", Mark::kAtChange, kSpeedRows, Subordinates::kListed) {}

    void UpdateControlStates() override {
        CBrindleOpts* const tuning = GetOptions();
        table().Enable({kProRata}, false);
        table().Enable({"Speed_sParam2Addr"}, IsTrue(tuning, "Speed_b2Params", true));
        table().Enable({"Speed_bNearest1", "Speed_bNearest2"}, !IsTrue(tuning, "Speed_b1"));
        LayOutSpeedRows(table(), tuning);
        table().Enable({"Speed_sFactor"}, table().IsChecked("Speed_bFactor"));
        EnableArcSpeeds(table(), tuning);
    }

protected:
    // The last tool is selected at first.
    void BindControls() override {
        CNCPerToolPage::BindControls();
        tools().Select(tools().GetCount() - 1);
        BindTool();
    }
    void OnToolSelected() override { BindTool(); }
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeSpeedPage(const PageContext& context) {
    return std::make_unique<CNCParamsSpeed>(context);
}

}  // namespace brindle
