// The page "Subs": sub-programs, their numbers, mirroring and rotation.
#include "editor/pages/params_pages.h"

#include "editor/messages.h"
#include "editor/pages/table_page.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

// What is side by side has an empty heading in common.
constexpr std::string_view kSubMode = "|Output mode for subs";
constexpr std::string_view kOrder = "|Output subs";
constexpr std::string_view kScheme = "|Subprogram numbering scheme    (@CurProgNum)";
constexpr std::string_view kMirroring = "|Subprogram mirroring    (@IncludeMirCode, @IncludeMirResetCode)";
constexpr std::string_view kSubRotation = "|Subprogram rotation    (@IncludeRotWord, @IncludeRotResetWord)";
constexpr std::string_view kStart = "Start subprograms at";
constexpr std::string_view kEnd = "End subprograms at";

constexpr PageRow kSubRows[] = {
    {kCheck, "bUseSubs", "", "&Support subprograms"},
    {kRadio, "bSubsInAbs", kSubMode, "&Absolute"},
    {kRadio, "bSubsInInc", kSubMode, "&Incremental"},
    {kRadio, "bOutputSubsAfter", kOrder, "&Main followed by Subs", 0, kBeside},
    {kRadio, "bOutputSubsFirst", kOrder, "&Subs followed by Main"},
    {kRadio, "SubNum_bUseFormula", kScheme, "By &formula"},
    {kRadio, "SubNum_bUseSequence", kScheme, "Use &sequence starting at @MainProgNum"},
    {kRadio, "SubNum_bUseBlockNum", kScheme, "Use &block numbers"},
    {kInteger, "SubNum_nMainOffset", kScheme, "", 0, kNewRow, "( @MainProgNum +"},
    {kInteger, "SubNum_nMainFactor", kScheme, "", kNoZero, kBeside, ") *"},
    {kInteger, "SubNum_nSubOffset", kScheme, "", 0, kBeside, "+ ( SubSequence# +"},
    {kInteger, "SubNum_nSubFactor", kScheme, "", kNoZero, kBeside, ") *"},
    {kInteger, "SubNum_nTotalOffset", kScheme, "", 0, kBeside, "+"},
    {kCheck, "bUseMirror", kMirroring, "&Mirroring supported"},
    {kText, "sMirrorX", kMirroring, "Mirror in &X:"},
    {kText, "sMirrorY", kMirroring, "Mirror in &Y:"},
    {kText, "sMirrorXY", kMirroring, "Mirror in X &and Y:"},
    {kText, "sMirrorReset", kMirroring, "Mirror &reset:"},
    {kCheck, "bUseRotations", kSubRotation, "&Rotations supported", 0, kBeside},
    {kText, "SubRot_sAddr", kSubRotation, "&Address:"},
    {kReal, "SubRot_rFactor", kSubRotation, "&Factor by:", kSixPlaces | kNoZero},
    {kDecimals, "SubRot_nNDec", kSubRotation, "&Round to:"},
    {kText, "SubRot_sCode", kSubRotation, "&Rotation code:"},
    {kText, "SubRot_sResetCode", kSubRotation, "&Reset code:"},
    {kRadio, "bStartSubsAtCen", kStart, "&Center of design", 0, kNewColumn},
    {kRadio, "bStartSubsAtLine", kStart, "First line"},
    {kRadio, "bEndSubsAtCen", kEnd, "&Center of design", 0, kNewColumn},
    {kRadio, "bEndSubsAtLine", kEnd, "Last line"},
};

// Where the main program or the numbering leaves no choice, the page shows what a run will do; the keys keep what they
// say.
class CNCParamsSubs : public CNCTablePage {
public:
    explicit CNCParamsSubs(const PageContext& context) : CNCTablePage(context, "Subs", Mark::kAtActivation, kSubRows) {}

    void UpdateControlStates() override {
        const bool supported = table().IsChecked("bUseSubs");
        table().EnableOthers("bUseSubs", supported);
        if (!supported) return;
        UpdateOutputMode();
        UpdateNumbering();
        table().Enable({"sMirrorX", "sMirrorY", "sMirrorXY", "sMirrorReset"}, table().IsChecked("bUseMirror"));
        table().Enable({"SubRot_sAddr", "SubRot_rFactor", "SubRot_nNDec", "SubRot_sCode", "SubRot_sResetCode"},
                       table().IsChecked("bUseRotations"));
    }
    // Warns when mirrored or rotated sub-programs are allowed.
    void OnBoundButtonClicked(CKVItemButton& control) override {
        const bool allows = &control == &table().Find<CKVItemButton>("bUseMirror") ||
                            &control == &table().Find<CKVItemButton>("bUseRotations");
        if (allows && control.control().GetCheck())
            Place().toolkit.ShowMessage(messages::kNoOffsetWithMirrorOrRotation);
    }

private:
    // An incremental main program has incremental sub-programs that end where they end.
    void UpdateOutputMode() {
        const bool main_is_absolute = IsTrue(GetOptions(), "bOutModeAbs", true);
        table().Enable({"bSubsInAbs", "bSubsInInc", "bEndSubsAtCen", "bEndSubsAtLine"}, main_is_absolute);
        if (main_is_absolute) return;
        table().SetCheck("bSubsInInc", true);
        table().SetCheck("bSubsInAbs", false);
        table().SetCheck("bEndSubsAtCen", false);
        table().SetCheck("bEndSubsAtLine", false);
    }

    // A block number is known to the main program only if the sub-program comes before it.
    void UpdateNumbering() {
        const bool by_block = table().IsChecked("SubNum_bUseBlockNum");
        table().Enable({"bOutputSubsAfter", "bOutputSubsFirst"}, !by_block);
        if (by_block) {
            table().SetCheck("bOutputSubsFirst", true);
            table().SetCheck("bOutputSubsAfter", false);
        }
        const bool by_formula = table().IsChecked("SubNum_bUseFormula");
        table().Enable({"SubNum_nMainOffset", "SubNum_nMainFactor"}, by_formula);
        table().Enable({"SubNum_nSubOffset", "SubNum_nSubFactor", "SubNum_nTotalOffset"},
                       by_formula || table().IsChecked("SubNum_bUseSequence"));
    }
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeSubsPage(const PageContext& context) {
    return std::make_unique<CNCParamsSubs>(context);
}

}  // namespace brindle
