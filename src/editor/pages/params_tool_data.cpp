#include "editor/pages/params_tool_data.h"

#include <algorithm>
#include <array>

#include "editor/messages.h"
#include "editor/pages/params_pages.h"
#include "editor/pages/redef_tool_dlg.h"
#include "editor/pages/speed_rows.h"
#include "editor/pages/view_tool_opt_dlg.h"
#include "tuning/key_catalogue.h"
#include "tuning/options.h"

namespace brindle {
namespace {

using enum ControlKind;
using enum Spot;

// A tuning from a file may hold more.
constexpr int32_t kMostNewTools = 30;

constexpr std::string_view kToolCount = "tool count";
constexpr std::string_view kTool = "tool";
constexpr std::string_view kKind = "kind";
constexpr std::string_view kMaster = "master";
constexpr std::string_view kCreate = "create";
constexpr std::string_view kRedefine = "redefine";
constexpr std::string_view kDelete = "delete";
constexpr std::string_view kView = "view";
constexpr std::string_view kTemplates = "templates";

constexpr std::string_view kRotation = "Tool rotation";
constexpr std::string_view kFacets = "Small radii";
constexpr std::string_view kMinMove = "Minimum move";
constexpr std::string_view kOffset = "Tool offset";
constexpr std::string_view kFly = "Fly mode";
constexpr std::string_view kSpeeds = "Speed values";
constexpr std::string_view kArcs = "Arcs";

constexpr unsigned kToolLength = kPerTool | kLength | kUnitPlaces;
constexpr unsigned kToolAngle = kPerTool | kUnitPlaces;

constexpr auto kToolRows = std::to_array<PageRow>({
    {kCheck, "bDefaultTool", "", "Support &default tool"},
    {kLabel, kToolCount, "", "Number of tools:", 0, kBeside},
    {kDropDown, kTool, "", "Data for &tool:"},
    {kEntries, kKind, "", "", kPerTool, kBeside},
    {kEntries, "bToolTool", "", "Tool", kPerTool | kEntry},
    {kEntries, "bToolSubordinate", "", "Subordinate Tool", kPerTool | kEntry},
    {kEntries, "bToolUnused", "", "Unused", kPerTool | kEntry},
    {kDropDown, kMaster, "", "&Master tool:", 0, kBeside},
    {kButton, kCreate, "", "Create &New Tool..."},
    {kButton, kRedefine, "", "&Redefine Tool...", 0, kBeside},
    {kButton, kDelete, "", "&Delete Last Tool", 0, kBeside},
    {kButton, kView, "", "&View Tool Data...", 0, kBeside},
    {kCheck, "bOnAfterSelect", "", "&Tool down/on after tool selection", kPerTool},
    {kCheck, "bOffReqBeforeDesel", "", "&Up/off required before deselection", kPerTool, kBeside},
    {kCheck, "bTangential", kRotation, "&Tangential tool", kPerTool},
    {kCheck, "b180Symmetry", kRotation, "180 &Symmetry", kPerTool},
    {kReal, "rLiftAngDEG", kRotation, "&Lift angle:", kToolAngle},
    {kCheck, "SmFacet_bUse", kFacets, "&Facet small radii", kPerTool, kNewColumn},
    {kReal, "SmFacet_rMaxRadiusMM", kFacets, "&Less than:", kToolLength},
    {kUnits, "SmFacet_rMaxRadiusMM", kFacets, "", 0, kBeside},
    {kReal, "SmFacet_rLiftAngleDEG", kFacets, "&Deviation angle:", kToolAngle},
    {kReal, "rMinMoveMM", kMinMove, "Minimum move &distance for: tool up/off:", kToolLength},
    {kUnits, "rMinMoveMM", kMinMove, "", 0, kBeside},
    {kCheck, "ToolOff_bUse", kOffset, "Tool &offset done by software", kPerTool},
    {kReal, "ToolOff_rAxis1MM", kOffset, "Axis &1:", kToolLength},
    {kReal, "ToolOff_rAxis2MM", kOffset, "Axis &2:", kToolLength},
    {kCheck, "Fly_bUse", kFly, "&Use fly mode", kPerTool, kNewColumn},
    {kReal, "Fly_rDEG_MaxAngDeviation", kFly, "For &devation angle <=", kToolAngle},
});

constexpr auto kTemplateRows = std::to_array<PageRow>({{kTable, kTemplates, "", ""}});

constexpr auto kToolPageRows =
    JoinRows(kToolRows, SpeedValueRows("Speed values|Param 1", "Speed values|Param 2", kNewRow),
             ArcSpeedRows(kArcs, "&Use small radii factor formula"), kTemplateRows);

// By the entries of the kind list.
enum Kind : int { kRegularTool, kSubordinateTool };

// Nothing is selected if no entry has that value.
void SelectValue(CListControl& list, int32_t value) {
    int index = list.GetCount() - 1;
    while (index >= 0 && list.GetValue(index) != value) --index;
    list.Select(index);
}

}  // namespace

CNCParamsToolData::CNCParamsToolData(const PageContext& context)
    : CNCTablePage(context, "Tools", Mark::kAtActivation, kToolPageRows) {}

void CNCParamsToolData::CreateControls() {
    CNCTablePage::CreateControls();
    CTableControl& templates = table().Table(kTemplates);
    templates_ = std::make_unique<CNCTemplateListCtrl>(Place().toolkit, templates);
    templates_->InitColumns(true);
    templates.double_clicked.Set([this] { templates_->EditAtPointer(GetOptions()); });

    ToolList().selected.Set([this] { SelectTool(SelectedTool()); });
    table().List(kMaster).selected.Set([this] { OnMasterChosen(); });
    table().Button(kCreate).clicked.Set([this] { OnCreateTool(); });
    table().Button(kRedefine).clicked.Set([this] { OnRedefineTool(); });
    table().Button(kDelete).clicked.Set([this] { OnDeleteTool(); });
    table().Button(kView).clicked.Set([this] { OnViewTools(); });
    table().Show({kView}, false);
}

void CNCParamsToolData::BindControls() {
    CNCTablePage::BindControls();
    tool_count_ = 0;
    GetOptions()->GetInt("nNumOfTools", tool_count_);
    tool_count_ = std::max(tool_count_, 0);
    ShowToolCount();
    FillToolCombo();
    if (ToolList().GetCount() > 0) SelectFirstTool();
}

// ---- The tools ----

CListControl& CNCParamsToolData::ToolList() { return table().List(kTool); }

int32_t CNCParamsToolData::SelectedTool() {
    const int selected = ToolList().GetSelected();
    return selected < 0 ? kDefaultTool : ToolList().GetValue(selected);
}

void CNCParamsToolData::SelectFirstTool() {
    ToolList().Select(0);
    SelectTool(SelectedTool());
}

void CNCParamsToolData::ShowToolCount() { table().Control(kToolCount).SetText(std::to_string(tool_count_)); }

void CNCParamsToolData::SetToolCount(int32_t count) {
    tool_count_ = count;
    GetOptions()->SetInt("nNumOfTools", count);
    ShowToolCount();
}

void CNCParamsToolData::FillToolCombo() {
    ToolList().Empty();
    if (table().IsChecked("bDefaultTool")) AddToolEntry(ToolList(), kDefaultTool);
    for (int32_t tool = 1; tool <= ListedTools(tool_count_); ++tool) AddToolEntry(ToolList(), tool);
}

void CNCParamsToolData::SelectTool(int32_t tool) {
    templates_->ClearInfos();
    if (GetOptions() == nullptr || tool == 0) return;
    current_tool_ = tool;
    SelectValue(ToolList(), tool);
    FillMasters();  // before a tool without a kind is given one: a tool that is new is no master yet
    BindPerTool(ToolPrefixText(tool));
    FillTemplates();
    UpdateControlStates();
}

void CNCParamsToolData::FillMasters() {
    CListControl& masters = table().List(kMaster);
    masters.Empty();
    for (int32_t tool = 1; tool <= ListedTools(tool_count_); ++tool) {
        if (IsTrue(GetOptions(), ToolPrefixText(tool) + "bToolTool")) AddToolEntry(masters, tool);
    }
    int32_t master = current_tool_;
    GetOptions()->GetInt(ToolPrefixText(current_tool_) + "nPhysicalTool", master);
    SelectValue(masters, master);
}

void CNCParamsToolData::OnMasterChosen() {
    const CListControl& masters = table().List(kMaster);
    GetOptions()->SetInt(ToolPrefixText(current_tool_) + "nPhysicalTool", masters.GetValue(masters.GetSelected()));
}

void CNCParamsToolData::FillTemplates() {
    for (const EventInfo& event : TemplateEvents()) {
        if (!event.per_tool) continue;
        templates_->AddInfo(event.caption, ToolPrefixText(current_tool_) + std::string(event.prefix));
    }
    templates_->Fill(GetOptions(), false);
}

void CNCParamsToolData::OnBoundButtonClicked(CKVItemButton& control) {
    if (&control != &table().Find<CKVItemButton>("bDefaultTool")) return;
    const int32_t tool = SelectedTool();
    FillToolCombo();
    SelectTool(tool);
}

// ---- Rule set ----

void CNCParamsToolData::UpdateControlStates() {
    const int32_t tool = SelectedTool();
    const int kind = table().Find<CKVItemCombo>(kKind).control().GetSelected();
    const bool regular = kind == kRegularTool && (tool > 0 || table().IsChecked("bDefaultTool"));
    const bool subordinate = kind == kSubordinateTool;

    table().Enable({kKind}, tool > 0);
    table().Enable({kDelete, kRedefine}, tool_count_ > 0);
    table().Enable({kTemplates}, regular || subordinate);
    table().Show({kMaster}, subordinate);
    table().Show({"bOnAfterSelect", "bOffReqBeforeDesel"}, regular);
    EnableToolGroups(regular);
    table().EnableGroup(kSpeeds, regular || subordinate);
    table().EnableGroup(kArcs, regular || subordinate);
    LayOutSpeedRows(table(), GetOptions());
    EnableArcSpeeds(table(), GetOptions());
    if (regular) EnableByValues();
}

void CNCParamsToolData::EnableToolGroups(bool regular) {
    for (const std::string_view group : {kRotation, kFacets, kMinMove, kOffset, kFly}) {
        table().EnableGroup(group, regular);
    }
}

void CNCParamsToolData::EnableByValues() {
    const bool tangential = table().IsChecked("bTangential");
    table().Enable({"b180Symmetry"}, tangential);
    table().Show({"rLiftAngDEG"}, tangential);

    table().Enable({"SmFacet_rMaxRadiusMM", "SmFacet_rLiftAngleDEG"}, table().IsChecked("SmFacet_bUse"));

    const bool can_fly = IsTrue(GetOptions(), "Fly_bSupport");
    table().Enable({"Fly_bUse"}, can_fly);
    table().Enable({"Fly_rDEG_MaxAngDeviation"}, can_fly && table().IsChecked("Fly_bUse"));

    // An offset would point the wrong way in a sub-program that is called mirrored or turned.
    const bool can_offset = !IsTrue(GetOptions(), "bUseRotations") && !IsTrue(GetOptions(), "bUseMirror");
    table().Enable({"ToolOff_bUse"}, can_offset);
    table().Enable({"ToolOff_rAxis1MM", "ToolOff_rAxis2MM"}, can_offset && table().IsChecked("ToolOff_bUse"));
}

// ---- Buttons ----

void CNCParamsToolData::OnCreateTool() {
    CBrindleOpts* const tuning = GetOptions();
    if (tuning == nullptr) return;
    if (tool_count_ >= kMostNewTools) {
        Place().toolkit.ShowMessage(messages::kTooManyTools);
        return;
    }
    int32_t source = 0;
    if (tool_count_ > 0) {
        const auto chosen = ChooseSourceTool(Place().toolkit, tool_count_, kDefaultTool);
        if (!chosen) return;
        source = *chosen;
    }
    SetToolCount(tool_count_ + 1);
    const int32_t tool = tool_count_;
    if (source > 0) tuning->CopyByPrefix(ToolPrefixText(source), ToolPrefixText(tool));
    FillToolCombo();
    SelectTool(tool);
}

void CNCParamsToolData::OnRedefineTool() {
    if (ToolList().GetSelected() < 0) return;
    const int32_t tool = SelectedTool();
    const auto source = ChooseSourceTool(Place().toolkit, tool_count_, tool);
    if (!source) return;
    GetOptions()->CopyByPrefix(ToolPrefixText(*source), ToolPrefixText(tool));
    SelectTool(tool);
}

void CNCParamsToolData::OnDeleteTool() {
    if (tool_count_ == 0) return;
    const int32_t last = tool_count_;
    SetToolCount(last - 1);
    GetOptions()->RemoveByPrefix(ToolPrefixText(last));
    FillToolCombo();
    if (current_tool_ <= tool_count_) return;
    if (tool_count_ == 0) {
        SelectFirstTool();
    } else {
        SelectTool(tool_count_);
    }
}

void CNCParamsToolData::OnViewTools() { ViewToolOptions(Place().toolkit, GetOptions()); }

std::unique_ptr<CNCParamsPage> MakeToolsPage(const PageContext& context) {
    return std::make_unique<CNCParamsToolData>(context);
}

}  // namespace brindle
