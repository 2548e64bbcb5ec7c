#include "editor/templates/template_list_ctrl.h"

#include "editor/templates/edit_template_dlg.h"

namespace brindle {
namespace {

enum Column : int { kTemplate, kNWord, kContent, kTerminate, kClearInterp, kClearAbsInc, kClearSpeed };

std::string_view YesOrNo(const CKVItemContainer& tuning, const std::string& key, bool if_absent) {
    return IsTrue(&tuning, key, if_absent) ? "Y" : "N";
}

}  // namespace

void CNCTemplateListCtrl::InitColumns(bool per_tool) {
    per_tool_ = per_tool;
    control_.AddColumn("Template", 110);
    control_.AddColumn("NWord", 0);
    control_.AddColumn("Content", per_tool ? 230 : 330);
    control_.AddColumn("Terminate", 80);
    if (!per_tool) return;
    control_.AddColumn("@InterpCode", 85);
    control_.AddColumn("@AbsIncCode", 85);
    control_.AddColumn("@SpeedWords", 85);
}

void CNCTemplateListCtrl::ClearInfos() {
    control_.DeleteRows();
    infos_.clear();
}

void CNCTemplateListCtrl::AddInfo(std::string_view name, std::string_view prefix) {
    infos_.push_back({std::string(prefix), std::string(name)});
}

void CNCTemplateListCtrl::Fill(const CKVItemContainer* tuning, bool separators) {
    control_.DeleteRows();
    separators_ = separators;
    if (tuning == nullptr) return;
    for (size_t i = 0; i < infos_.size(); ++i) {
        if (!infos_[i].prefix.empty()) AddTemplate(*tuning, static_cast<int32_t>(i));
    }
}

void CNCTemplateListCtrl::AddTemplate(const CKVItemContainer& tuning, int32_t index) {
    const CKVInfo& info = infos_[static_cast<size_t>(index)];
    TemplateLines lines;
    tuning.GetMulti(info.prefix + "tTmpl", lines);
    const std::string_view last_ends = YesOrNo(tuning, info.prefix + "bTerminiate", true);
    for (size_t i = 0; i < lines.size(); ++i) {
        const int row = AddRow(index);
        if (i == 0) control_.SetCell({row, kTemplate}, info.name);
        control_.SetCell({row, kContent}, lines[i].text);
        control_.SetCell({row, kTerminate}, i + 1 < lines.size() ? "Y" : last_ends);
        if (per_tool_) SetClearCells(tuning, info.prefix, row);
    }
    if (lines.empty()) control_.SetCell({AddRow(index), kTemplate}, info.name);
    if (separators_) AddRow(index);
}

int CNCTemplateListCtrl::AddRow(int32_t index) {
    const int row = control_.AddRow();
    control_.SetRowValue(row, index);
    return row;
}

void CNCTemplateListCtrl::SetClearCells(const CKVItemContainer& tuning, const std::string& prefix, int row) {
    control_.SetCell({row, kClearInterp}, YesOrNo(tuning, prefix + "bClearInterp", false));
    control_.SetCell({row, kClearAbsInc}, YesOrNo(tuning, prefix + "bClearAbsInc", false));
    control_.SetCell({row, kClearSpeed}, YesOrNo(tuning, prefix + "bClearSpeed", false));
}

void CNCTemplateListCtrl::EditAtPointer(CKVItemContainer* tuning) {
    const auto cell = control_.CellUnderPointer();
    if (!cell) return;
    const auto index = static_cast<size_t>(control_.GetRowValue(cell->row));
    if (index >= infos_.size() || infos_[index].prefix.empty()) return;
    if (EditTemplate(toolkit_, tuning, infos_[index].prefix, infos_[index].name, per_tool_)) Fill(tuning, separators_);
}

}  // namespace brindle
