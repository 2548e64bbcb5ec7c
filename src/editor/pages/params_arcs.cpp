// The page "ArcData": the words of arcs, and arcs that are cut as facets.
#include "editor/pages/params_pages.h"

#include "editor/pages/per_tool_page.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

constexpr std::string_view kDefinedBy = "Arcs defined by:";
constexpr std::string_view kCenterAddresses = "&Addresses...";
constexpr std::string_view kClockwise = "For CW arcs, positive radius indicates:";
constexpr std::string_view kCounterClockwise = "For CCW arcs, positive radius indicates:";
constexpr std::string_view kPositiveAngle = "&Positive angle is:";
constexpr std::string_view kLargeRadii = "Faceting for Large Radii";
constexpr std::string_view kMaxOrdinate = "Maximum ordinate";
constexpr std::string_view kSmallRadiiTools = "Faceting for Small Radii|Per tool";
constexpr std::string_view kSmallRadii = "Faceting for Small Radii|";
constexpr std::string_view kInAbsolute = "center in absolute mode";
constexpr std::string_view kInIncremental = "center in incremental mode";

constexpr PageRow kArcRows[] = {
    {kRadio, "bArcByCen", kDefinedBy, "By &center"},
    {kRadio, "bArcByRad", kDefinedBy, "By &radius"},
    {kRadio, "bArcBySub", kDefinedBy, "By &sub angle"},

    {kCheck, "bArcDataModal", "", "&Modal"},
    {kEntries, kInAbsolute, "", "In absolute mode, center point measured &by:"},
    {kEntries, "bInAbsCenFromStart", "", "From START point", kEntry},
    {kEntries, "bInAbsCenFromEnd", "", "From END point", kEntry},
    {kEntries, "bInAbsCenIsAbs", "", "In absolute", kEntry},
    {kEntries, kInIncremental, "", "In incremental mode, center point measured &by:"},
    {kEntries, "bInIncCenFromStart", "", "From START point", kEntry},
    {kEntries, "bInIncCenFromEnd", "", "From END point", kEntry},
    {kText, "sCenAx1Addr", kCenterAddresses, "Axis &1:"},
    {kText, "sCenAx2Addr", kCenterAddresses, "Axis &2:"},

    {kRadio, "bRadCWArcPosIsShort", kClockwise, "&Short arc"},
    {kRadio, "bRadCWArcPosIsLong", kClockwise, "&Long arc"},
    {kRadio, "bRadCCWArcPosIsShort", kCounterClockwise, "&Short arc"},
    {kRadio, "bRadCCWArcPosIsLong", kCounterClockwise, "&Long arc"},
    {kText, "sRadArcAddr", "", "&Address for radius:"},

    {kText, "sSubArcAddr", "", "Address for subtended angle:"},
    {kRadio, "bSubArcPosCW", kPositiveAngle, "&CW"},
    {kRadio, "bSubArcPosCCW", kPositiveAngle, "&CCW"},
    {kReal, "rSubArcFactor", "", "Factor by:", kSixPlaces | kNoZero},
    {kLabel, "rSubArcFactor", "", "degrees", 0, kBeside},
    {kDecimals, "nSubArcNDec", "", "&Round to:"},

    {kReal, "rFacetTolMM", kLargeRadii, "Facet &tolerance:", kLength | kUnitPlaces, kNewColumn},
    {kUnits, "rFacetTolMM", kLargeRadii, "", 0, kBeside},
    {kReal, "rMaxOrdMM", kMaxOrdinate, "&Inch data <", kUnitPlaces},
    {kReal, "rMaxOrdIN", kMaxOrdinate, "&Metric data <", kUnitPlaces},
    {kList, CNCPerToolPage::kTools, kSmallRadiiTools, ""},
    {kCheck, "SmFacet_bUse", kSmallRadii, "&Facet small radii", kPerTool, kNewColumn},
    {kReal, "SmFacet_rMaxRadiusMM", kSmallRadii, "&Less than:", kPerTool | kLength | kUnitPlaces},
    {kUnits, "SmFacet_rMaxRadiusMM", kSmallRadii, "", kPerTool, kBeside},
    {kReal, "SmFacet_rLiftAngleDEG", kSmallRadii, "&Deviation angle:", kPerTool | kUnitPlaces},
};

class CNCParamsArcs : public CNCPerToolPage {
public:
    explicit CNCParamsArcs(const PageContext& context)
        : CNCPerToolPage(context, "ArcData", Mark::kAtActivation, kArcRows, Subordinates::kLeftOut) {}

    void UpdateControlStates() override {
        table().Enable({"rMaxOrdMM"}, !IsTrue(GetOptions(), "bOutUnitsMetric"));
        table().Enable({"rMaxOrdIN"}, !IsTrue(GetOptions(), "bOutUnitsInches"));

        const bool by_center = table().IsChecked("bArcByCen");
        table().Show({"bArcDataModal", kInAbsolute, kInIncremental}, by_center);
        table().ShowGroup(kCenterAddresses, by_center);

        const bool by_radius = table().IsChecked("bArcByRad");
        table().ShowGroup(kClockwise, by_radius);
        table().ShowGroup(kCounterClockwise, by_radius);
        table().Show({"sRadArcAddr"}, by_radius);

        const bool by_angle = table().IsChecked("bArcBySub");
        table().Show({"sSubArcAddr", "rSubArcFactor", "nSubArcNDec"}, by_angle);
        table().ShowGroup(kPositiveAngle, by_angle);

        table().Enable({"SmFacet_bUse"}, true);
        table().Enable({"SmFacet_rMaxRadiusMM", "SmFacet_rLiftAngleDEG"}, table().IsChecked("SmFacet_bUse"));
    }
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeArcsPage(const PageContext& context) {
    return std::make_unique<CNCParamsArcs>(context);
}

}  // namespace brindle
