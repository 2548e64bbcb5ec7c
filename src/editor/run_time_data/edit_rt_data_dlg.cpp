#include "editor/run_time_data/edit_rt_data_dlg.h"

namespace brindle {
namespace {

constexpr char kKindGroup[] = "Kind";

// Null if there is no entry of that number.
const CRunTimeDefItem* ItemAt(const std::vector<CRunTimeDefItem>& items, int32_t number) {
    const auto index = static_cast<size_t>(number) - 1;
    return index < items.size() ? &items[index] : nullptr;
}

}  // namespace

std::optional<RTDataEntry> RTDataEntryAt(const CRunTimeDataDef& definition, RunTimePlace place) {
    const std::string key = WordOfPlace(place);
    const CRunTimeDefItem* const first =
        ItemAt(place.IsMessage() ? definition.messages() : definition.rows(), place.entry);
    if (first == nullptr) return std::nullopt;
    if (place.IsMessage()) return RTDataEntry{key, "Message", first->name, {}, {}};
    const CRunTimeDefItem* const column = ItemAt(definition.columns(), place.column);
    if (column == nullptr) return std::nullopt;
    return RTDataEntry{key, "Row", first->name, "Column", column->name};
}

CEditRTDataDlg::CEditRTDataDlg(CToolkit& toolkit, const RTDataEntry& entry, Mode mode)
    : window_(toolkit.MakeDialog(mode == Mode::kDefaultValue ? "Edit Default Value" : "Edit RunTimeData")) {
    const bool is_job_value = mode == Mode::kJobValue;
    AddLabel(is_job_value ? "Default value:" : "", entry.default_value);
    AddLabel(is_job_value ? "Last used value:" : "", entry.last_value);
    field_ = &window_->AddEdit(PlainSpec(ControlKind::kText, "Value:"));
    field_->SetText(entry.value);
    AddLabel("", entry.key);
    AddLabel(entry.first_title, entry.first_text);
    AddLabel(entry.second_title, entry.second_text);
    AddKinds(entry.kind, !is_job_value);
    const bool is_computed = is_job_value && entry.kind != TextKind::kPlain;
    AddLabel("", is_computed ? "(calculated from an expression)" : "");
    AddUseButton("Use Last Value", entry.last_value, Spot::kNewRow, is_job_value);
    AddUseButton("Use Default Value", entry.default_value, Spot::kBeside, is_job_value);
    field_->TakeFocus();
    window_->ok_clicked.Set([this] { window_->EndWithOk(); });
}

void CEditRTDataDlg::AddLabel(const std::string& caption, const std::string& text) {
    window_->AddLabel(PlainSpec(ControlKind::kLabel, caption)).SetText(text);
}

void CEditRTDataDlg::AddKinds(TextKind kind, bool shown) {
    CButtonControl& plain = window_->AddButton({ControlKind::kRadio, {}, "Static value", kKindGroup});
    expression_ = &window_->AddButton({ControlKind::kRadio, {}, "Expression", kKindGroup, {}, Spot::kBeside});
    plain.SetCheck(kind == TextKind::kPlain);
    expression_->SetCheck(kind != TextKind::kPlain);
    plain.Show(shown);
    expression_->Show(shown);
}

void CEditRTDataDlg::AddUseButton(const char* caption, const std::string& value, Spot spot, bool shown) {
    CButtonControl& button = window_->AddButton({ControlKind::kButton, {}, caption, {}, {}, spot});
    button.Show(shown);
    button.Enable(!value.empty());
    button.clicked.Set([this, value] {
        field_->SetText(value);
        window_->EndWithOk();
    });
}

}  // namespace brindle
