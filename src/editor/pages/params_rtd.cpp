// The page "RunTimeData": the definition of the tuning's run-time data, and the default values in its datasets.
#include "editor/pages/params_pages.h"

#include <memory>
#include <string>

#include "editor/messages.h"
#include "editor/run_time_data/edit_rt_data_dlg.h"
#include "editor/run_time_data/rtd_def_editor.h"
#include "editor/run_time_data/run_time_questions.h"
#include "editor/run_time_data/run_time_value_tables.h"

namespace brindle {
namespace {

constexpr int kMessageWidth = 150;
constexpr char kDatasetGroup[] = "Dataset";

// Edits definition and datasets in place. The dataset that is shown is the current one.
class CNCParamsRTD : public CNCParamsPage {
public:
    explicit CNCParamsRTD(const PageContext& context) : CNCParamsPage(context, "RunTimeData", Mark::kAtChange) {}

    // Makes `name` current and shows its values; one that does not exist has none.
    void ShowDataset(const std::string& name) {
        if (GetRTDDef() == nullptr) return;
        dataset_ = name;
        tables_->ShowColumns(*GetRTDDef());
        tables_->ShowEntries(*GetRTDDef());
        if (Values() != nullptr) tables_->ShowValues(*Values());
    }

protected:
    void CreateControls() override {
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

    void BindControls() override {
        FillDatasets();
        if (datasets_->GetCount() == 0) return;
        datasets_->Select(0);
        ShowDataset(datasets_->GetEntryText(0));
    }

private:
    void AddButton(const char* label, void (CNCParamsRTD::*on_click)(CRunTimeDataDef& definition)) {
        Place()
            .form.AddButton({ControlKind::kButton, {}, label, kDatasetGroup, {}, Spot::kBeside})
            .clicked.Set([this, on_click] {
                if (GetRTDDef() != nullptr) (this->*on_click)(*GetRTDDef());
            });
    }

    void FillDatasets() {
        const CDataSetContainer& datasets = GetRTDDef()->datasets();
        datasets_->Empty();
        for (size_t i = 0; i < datasets.size(); ++i) datasets_->AddEntry(datasets.NameAt(i));
    }

    void ShowLastDataset() {
        FillDatasets();
        datasets_->Select(datasets_->GetCount() - 1);
        ShowDataset(datasets_->GetEntryText(datasets_->GetSelected()));
    }
    // Of the current dataset, null if there is none.
    CKVItemContainer* Values() { return GetRTDDef()->datasets().ValuesOf(dataset_); }

    void EditDefaultValue(RunTimePlace place) {
        CKVItemContainer* const values = GetRTDDef() == nullptr ? nullptr : Values();
        if (values == nullptr) return;
        auto entry = RTDataEntryAt(*GetRTDDef(), place);
        if (!entry) return;
        values->GetTextAndKind(entry->key, entry->value, entry->kind);
        const auto edited = EditRTData(Place().toolkit, *entry, EditRTDataMode::kDefaultValue);
        if (!edited) return;
        values->SetText(entry->key, edited->value, edited->kind);
        tables_->ShowValue(place, edited->value);
    }

    void OnAddDataset(CRunTimeDataDef& definition) {
        const auto name = AskForNewDataset(Place().toolkit);
        if (!name) return;
        if (definition.datasets().Add(*name)) {
            ShowLastDataset();
        } else {
            Place().toolkit.ShowMessage(messages::kDatasetNameUsed);
        }
    }

    void OnDeleteDataset(CRunTimeDataDef& definition) {
        if (Values() == nullptr) {
            Place().toolkit.ShowMessage(messages::kNoDatasetToDelete);
        } else if (Place().toolkit.AskYesNo(std::string(messages::kDeleteDataset) + dataset_)) {
            definition.datasets().Remove(dataset_);
            ShowLastDataset();
        }
    }

    void OnCopyValues(CRunTimeDataDef& definition) {
        if (Values() == nullptr) return;
        const auto source = AskForSourceDataset(Place().toolkit, definition.datasets(), dataset_);
        if (!source) return;
        Values()->Assign(*definition.datasets().ValuesOf(*source));
        ShowDataset(dataset_);
    }

    void OnEditDefinition(CRunTimeDataDef& definition) {
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

    std::unique_ptr<CRunTimeValueTables> tables_;
    CListControl* datasets_ = nullptr;
    std::string dataset_;
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeRunTimeDataPage(const PageContext& context) {
    return std::make_unique<CNCParamsRTD>(context);
}

}  // namespace brindle
