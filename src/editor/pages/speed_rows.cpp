#include "editor/pages/speed_rows.h"

namespace brindle {
namespace {

bool HasTwoParameters(const CKVItemContainer* tuning) { return IsTrue(tuning, "Speed_b2Params", true); }

using RowLabels = std::array<std::string_view, 4>;

RowLabels LabelsOf(bool single, bool four) {
    if (single) return {"Value"};
    if (four) return {"Axis 1 +", "Axis 2 +", "Axis 1 -", "Axis 2 -"};
    return {"Axis 1", "Axis 2"};
}

}  // namespace

void LayOutSpeedRows(CPageTable& table, const CKVItemContainer* tuning) {
    const bool single = IsTrue(tuning, "Speed_b1");
    const bool four = IsTrue(tuning, "Speed_b4");
    const bool two = HasTwoParameters(tuning);
    table.Show({"Speed_P2_sV1"}, two);
    table.Show({"Speed_P1_sV2"}, !single);
    table.Show({"Speed_P2_sV2"}, !single && two);
    table.Show({"Speed_P1_sV3", "Speed_P1_sV4"}, four);
    table.Show({"Speed_P2_sV3", "Speed_P2_sV4"}, four && two);

    const RowLabels labels = LabelsOf(single, four);
    table.Control("SpeedRow1").SetText(labels[0]);
    table.Control("SpeedRow2").SetText(labels[1]);
    table.Control("SpeedRow3").SetText(labels[2]);
    table.Control("SpeedRow4").SetText(labels[3]);
}

void EnableArcSpeeds(CPageTable& table, const CKVItemContainer* tuning) {
    const bool separate = table.IsChecked("Speed_bSepForArcs");
    table.Enable({"Speed_bUseSmallRadiiFormula", "Speed_sForArcs_P1"}, separate);
    table.Enable({"Speed_sForArcs_P2"}, separate && HasTwoParameters(tuning));
}

}  // namespace brindle
