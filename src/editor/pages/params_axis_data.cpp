// The page "AxisData": format and addresses of the axes.
#include "editor/pages/params_pages.h"

#include "editor/pages/table_page.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

constexpr std::string_view kAxis1 = "Axis 1";
constexpr std::string_view kAxis1Output = "Axis 1|Output:";
constexpr std::string_view kAxis1Inch = "Axis 1|Format for inch";
constexpr std::string_view kAxis1Mm = "Axis 1|Format for mm";
constexpr std::string_view kAxis2 = "Axis 2";
constexpr std::string_view kAxis2Output = "Axis 2|Output:";
constexpr std::string_view kAxis2Inch = "Axis 2|Format for inch";
constexpr std::string_view kAxis2Mm = "Axis 2|Format for mm";
constexpr std::string_view kAddresses = "Addresses";
constexpr std::string_view kEndAddresses = "Addresses|Address for axis data";
constexpr std::string_view kStartAddresses = "Addresses|Address for start point data";
constexpr std::string_view kRotaryRadius = "Rotary Radius";

constexpr unsigned kAxisFactor = kSixPlaces | kNoNegative | kNoZero;

constexpr PageRow kAxisDataRows[] = {
    {kCheck, "bAx1IsRot", kAxis1, "Is &rotary axis"},
    {kRadio, "bRotAxisInDegrees", kAxis1Output, "In &degrees"},
    {kRadio, "bRotAxisPLinear", kAxis1Output, "Pseudo &linear"},
    {kReal, "IN_AX1_rFactor", kAxis1Inch, "&Factor by:", kAxisFactor},
    {kDecimals, "IN_AX1_nNDec", kAxis1Inch, "&Round to:"},
    {kReal, "MM_AX1_rFactor", kAxis1Mm, "&Factor by:", kAxisFactor},
    {kDecimals, "MM_AX1_nNDec", kAxis1Mm, "&Round to:"},
    {kCheck, "bAx2IsRot", kAxis2, "Is &rotary axis", 0, kNewColumn},
    {kRadio, "bRotAxisInDegrees", kAxis2Output, "In &degrees"},
    {kRadio, "bRotAxisPLinear", kAxis2Output, "Pseudo &linear"},
    {kReal, "IN_AX2_rFactor", kAxis2Inch, "&Factor by:", kAxisFactor},
    {kDecimals, "IN_AX2_nNDec", kAxis2Inch, "&Round to:"},
    {kReal, "MM_AX2_rFactor", kAxis2Mm, "&Factor by:", kAxisFactor},
    {kDecimals, "MM_AX2_nNDec", kAxis2Mm, "&Round to:"},
    {kCheck, "bAxisDataModal", kAddresses, "&Modal", 0, kNewColumn},
    {kCheck, "bStartEndOnBlock", kAddresses, "Use &separate address for start data"},
    {kText, "sAx1Addr", kEndAddresses, "Axis &1:"},
    {kText, "sAx2Addr", kEndAddresses, "Axis &2:"},
    {kText, "sAx1AddrStart", kStartAddresses, "Axis &1:"},
    {kText, "sAx2AddrStart", kStartAddresses, "Axis &2:"},
    {kReal, "rDefRotRadiusMM", kRotaryRadius, "Default effective radius:", kLength},
    {kUnits, "rDefRotRadiusMM", kRotaryRadius, "", 0, kBeside},
};

// Both axes show the one setting of a rotary axis; only that of the rotary axis is in view.
class CNCParamsData : public CNCTablePage {
public:
    explicit CNCParamsData(const PageContext& context)
        : CNCTablePage(context, "AxisData", Mark::kAtActivation, kAxisDataRows) {}

    void UpdateControlStates() override {
        CBrindleOpts* const tuning = GetOptions();
        const bool axis1_turns = IsTrue(tuning, "bAx1IsRot");
        const bool axis2_turns = IsTrue(tuning, "bAx2IsRot");
        table().EnableGroup(kStartAddresses, IsTrue(tuning, "bStartEndOnBlock"));
        table().Enable({"bAx1IsRot"}, !axis2_turns);
        table().Enable({"bAx2IsRot"}, !axis1_turns);
        // A click at one axis has changed the setting for both.
        table().BindKeys({"bRotAxisInDegrees", "bRotAxisPLinear"}, tuning, {}, IsInches());
        table().ShowGroup(kAxis1Output, axis1_turns);
        table().ShowGroup(kAxis2Output, axis2_turns);
        table().Enable({"rDefRotRadiusMM"}, axis1_turns || axis2_turns);

        const bool inches_only = IsTrue(tuning, "bOutUnitsInches");
        const bool mm_only = IsTrue(tuning, "bOutUnitsMetric");
        table().EnableGroup(kAxis1Mm, !inches_only);
        table().EnableGroup(kAxis2Mm, !inches_only);
        table().EnableGroup(kAxis1Inch, !mm_only);
        table().EnableGroup(kAxis2Inch, !mm_only);
    }
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeAxisDataPage(const PageContext& context) {
    return std::make_unique<CNCParamsData>(context);
}

}  // namespace brindle
