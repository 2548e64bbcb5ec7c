#include "editor/pages/params_rtd.h"

#include "editor/messages.h"
#include "editor/run_time_data/copy_rtd_values_dlg.h"
#include "editor/run_time_data/edit_rt_data_dlg.h"
#include "editor/run_time_data/new_dataset_dlg.h"
#include "editor/run_time_data/rtd_def_editor.h"

namespace brindle {
namespace {

constexpr int kMessageWidth = 150;
constexpr char kDatasetGroup[] = "Dataset";

}  // namespace

void CNCParamsRTD::CreateControls() {
    CForm& form = Place().form;
    tables_ = std::make_unique<CRunTimeValueTables>(form, CRunTimeValueTables::Hidden::kMarked, kMessageWidth);
    tables_->OnValueChosen([this](RunTimePlace place) { EditDefaultValue(place); });
    datasets_ = &form.AddList({ControlKind::kDropDown, {}, {}, kDatasetGroup});
    datasets_->selected.Set([this] { ShowDataset(datasets_->GetEntryText(datasets_->GetSelected())); });
    AddButton("Add &Dataset...", &CNCParamsRTD::OnAddDataset);
    AddButton("De&lete Dataset...", &CNCParamsRTD::OnDeleteDataset);
    AddButton("Copy &Values...", &CNCParamsRTD::OnCopyValues);
    AddButton("Edit &RTD Definition...", &CNCParamsRTD::OnEditDefinition);
}

void CNCParamsRTD::AddButton(const char* label, void (CNCParamsRTD::*on_click)(CRunTimeDataDef& definition)) {
    Place()
        .form.AddButton({ControlKind::kButton, {}, label, kDatasetGroup, {}, Spot::kBeside})
        .clicked.Set([this, on_click] {
            if (GetRTDDef() != nullptr) (this->*on_click)(*GetRTDDef());
        });
}

void CNCParamsRTD::BindControls() {
    FillDatasets();
    if (datasets_->GetCount() == 0) return;
    datasets_->Select(0);
    ShowDataset(datasets_->GetEntryText(0));
}

void CNCParamsRTD::FillDatasets() {
    const CDataSetContainer& datasets = GetRTDDef()->datasets();
    datasets_->Empty();
    for (size_t i = 0; i < datasets.size(); ++i) datasets_->AddEntry(datasets.NameAt(i));
}

void CNCParamsRTD::ShowLastDataset() {
    FillDatasets();
    datasets_->Select(datasets_->GetCount() - 1);
    ShowDataset(datasets_->GetEntryText(datasets_->GetSelected()));
}

void CNCParamsRTD::ShowDataset(const std::string& name) {
    if (GetRTDDef() == nullptr) return;
    dataset_ = name;
    tables_->ShowColumns(*GetRTDDef());
    tables_->ShowEntries(*GetRTDDef());
    if (Values() != nullptr) tables_->ShowValues(*Values());
}

CKVItemContainer* CNCParamsRTD::Values() { return GetRTDDef()->datasets().ValuesOf(dataset_); }

void CNCParamsRTD::EditDefaultValue(RunTimePlace place) {
    CKVItemContainer* const values = GetRTDDef() == nullptr ? nullptr : Values();
    if (values == nullptr) return;
    auto entry = RTDataEntryAt(*GetRTDDef(), place);
    if (!entry) return;
    values->GetTextAndKind(entry->key, entry->value, entry->kind);
    CEditRTDataDlg dialog(Place().toolkit, *entry, CEditRTDataDlg::Mode::kDefaultValue);
    if (!dialog.RunModal()) return;
    values->SetText(entry->key, dialog.value(), dialog.kind());
    tables_->ShowValue(place, dialog.value());
}

void CNCParamsRTD::OnAddDataset(CRunTimeDataDef& definition) {
    CNewDatasetDlg dialog(Place().toolkit);
    if (!dialog.RunModal()) return;
    if (definition.datasets().Add(dialog.name())) {
        ShowLastDataset();
    } else {
        Place().toolkit.ShowMessage(messages::kDatasetNameUsed);
    }
}

void CNCParamsRTD::OnDeleteDataset(CRunTimeDataDef& definition) {
    if (Values() == nullptr) {
        Place().toolkit.ShowMessage(messages::kNoDatasetToDelete);
    } else if (Place().toolkit.AskYesNo(std::string(messages::kDeleteDataset) + dataset_)) {
        definition.datasets().Remove(dataset_);
        ShowLastDataset();
    }
}

void CNCParamsRTD::OnCopyValues(CRunTimeDataDef& definition) {
    if (Values() == nullptr) return;
    CCopyRTDValuesDlg dialog(Place().toolkit, definition.datasets(), dataset_);
    if (!dialog.RunModal()) return;
    Values()->Assign(*definition.datasets().ValuesOf(dialog.chosen()));
    ShowDataset(dataset_);
}

void CNCParamsRTD::OnEditDefinition(CRunTimeDataDef& definition) {
    CToolkit& toolkit = Place().toolkit;
    if (definition.datasets().size() == 0) {
        toolkit.ShowMessage(messages::kAddDatasetFirst);
        return;
    }
    const bool allow_delete = toolkit.AskYesNo(messages::kMayDeleteDefinitions);
    if (EditDefinition(toolkit, definition, allow_delete)) {
        ShowDataset(datasets_->GetEntryText(datasets_->GetSelected()));
    }
}

}  // namespace brindle
