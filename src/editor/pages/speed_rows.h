// The speeds of a tool: controls that the pages Speed and Tools have in common.
#pragma once

#include <array>

#include "editor/controls/page_table.h"

namespace brindle {

// Four values of two parameters; the label before a row says where its values hold. `param1` and `param2` are the
// groups of the two columns, `spot` is that of the first.
constexpr std::array<PageRow, 12> SpeedValueRows(std::string_view param1, std::string_view param2,
                                                 Spot spot = Spot::kNewColumn) {
    using enum ControlKind;
    constexpr std::string_view kParam1 = "Param 1";
    constexpr std::string_view kParam2 = "Param 2";
    return {{
        {kLabel, "SpeedRow1", param1, "", 0, spot},
        {kText, "Speed_P1_sV1", param1, kParam1, kPerTool, Spot::kBeside},
        {kLabel, "SpeedRow2", param1, ""},
        {kText, "Speed_P1_sV2", param1, kParam1, kPerTool, Spot::kBeside},
        {kLabel, "SpeedRow3", param1, ""},
        {kText, "Speed_P1_sV3", param1, kParam1, kPerTool, Spot::kBeside},
        {kLabel, "SpeedRow4", param1, ""},
        {kText, "Speed_P1_sV4", param1, kParam1, kPerTool, Spot::kBeside},
        {kText, "Speed_P2_sV1", param2, kParam2, kPerTool, Spot::kBeside},
        {kText, "Speed_P2_sV2", param2, kParam2, kPerTool},
        {kText, "Speed_P2_sV3", param2, kParam2, kPerTool},
        {kText, "Speed_P2_sV4", param2, kParam2, kPerTool},
    }};
}

// `formula`: the label of the check box for the small-radius factor.
constexpr std::array<PageRow, 4> ArcSpeedRows(std::string_view group, std::string_view formula,
                                              Spot spot = Spot::kNewColumn) {
    using enum ControlKind;
    return {{
        {kCheck, "Speed_bSepForArcs", group, "&Use separate speed for arcs", kPerTool, spot},
        {kText, "Speed_sForArcs_P1", group, "Param 1", kPerTool},
        {kText, "Speed_sForArcs_P2", group, "Param 2", kPerTool},
        {kCheck, "Speed_bUseSmallRadiiFormula", group, formula, kPerTool},
    }};
}

// Shows the rows that the number of speed values and parameters in `tuning` asks for, and names them.
void LayOutSpeedRows(CPageTable& table, const CKVItemContainer* tuning);

// Opens the controls for the speed of arcs where it is a separate one.
void EnableArcSpeeds(CPageTable& table, const CKVItemContainer* tuning);

}  // namespace brindle
