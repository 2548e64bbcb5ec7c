#include "editor/run_time_data/nc_run_time_dlg.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "editor/messages.h"
#include "editor/run_time_data/edit_rt_data_dlg.h"
#include "editor/run_time_data/run_time_questions.h"
#include "editor/run_time_data/run_time_value_tables.h"
#include "rtd/value_exchange.h"
#include "text/ascii.h"

namespace brindle {
namespace {

constexpr int kMessageWidth = 120;

// Works on copies of the dataset's name and of the run's values. What the user leaves, by OK or for another
// dataset, is stored as the values last used; Cancel takes back no store.
class CNCRunTimeDlg {
public:
    // `definition` must outlive the dialog. An empty `dataset` is the first of the definition.
    CNCRunTimeDlg(CToolkit& toolkit, const CRunTimeDataDef& definition, std::string tuning_pick, std::string dataset,
                  const CKVItemContainer& values)
        : toolkit_(toolkit),
          definition_(definition),
          tuning_pick_(std::move(tuning_pick)),
          dataset_(std::move(dataset)),
          window_(toolkit.MakeDialog("Run Time Data")),
          datasets_(window_->AddList({ControlKind::kDropDown, {}, {}, "Dataset"})),
          tables_(*window_, CRunTimeValueTables::Hidden::kLeftOut, kMessageWidth) {
        values_.Assign(values);
        for (size_t i = 0; i < definition.datasets().size(); ++i) datasets_.AddEntry(definition.datasets().NameAt(i));
        datasets_.selected.Set([this] { OnDatasetSelected(); });
        tables_.OnValueChosen([this](RunTimePlace place) { EditValue(place); });
        tables_.OnRowChosen([this](int32_t row) { OnRowChosen(row); });
        window_->AddButton({ControlKind::kButton, {}, "Reset to default values"}).clicked.Set([this] {
            ResetAllToDefaults();
        });
        window_->ok_clicked.Set([this] { OnOk(); });
    }

    bool RunModal() {
        tables_.ShowColumns(definition_);
        SelectDataset();
        if (values_.items().size() == 0) {
            LoadDataset(dataset_);
        } else {
            LoadLastUsed();
            ShowValues();
        }
        return window_->RunModal();
    }

    const std::string& dataset() const { return dataset_; }
    const CKVItemContainer& values() const { return values_; }

    // Puts the values of a dataset in place of all there are: defaults and what was last used. May ask the user.
    void LoadDataset(const std::string& name) {
        if (dataset_.empty()) return;
        dataset_ = name;
        LoadLastUsed();
        LoadRunTimeValues(
            definition_, dataset_, tuning_pick_,
            [this](const std::string& question) { return toolkit_.AskYesNo(question); }, values_);
        ShowValues();
    }
    // Shows the messages and rows that are not hidden, with their values.
    void ShowValues() {
        tables_.ShowEntries(definition_);
        tables_.ShowValues(values_);
    }

private:
    // In the list; 0 for one that is not there. Case is a help, not a difference.
    int PlaceOfDataset() const {
        int place = -1;
        for (int i = 0; i < datasets_.GetCount(); ++i) {
            const std::string name = datasets_.GetEntryText(i);
            if (name == dataset_) return i;  // another may differ in case alone
            if (place < 0 && EqualNoCase(name, dataset_)) place = i;
        }
        return std::max(place, 0);
    }

    void SelectDataset() {
        datasets_.Select(PlaceOfDataset());
        if (dataset_.empty()) dataset_ = datasets_.GetEntryText(datasets_.GetSelected());
    }

    void LoadLastUsed() {
        std::string date;
        LoadStoredValues(RecordName(tuning_pick_, dataset_), last_used_, date);
    }

    void SaveValues() const {
        if (!dataset_.empty()) SaveRunTimeValues(RecordName(tuning_pick_, dataset_), values_);
    }
    // Of the current dataset, null if there is none.
    const CKVItemContainer* Defaults() const {
        const CDataSetItem* const dataset = definition_.datasets().Find(dataset_);
        return dataset == nullptr ? nullptr : &dataset->values;
    }

    void OnDatasetSelected() {
        const std::string name = datasets_.GetEntryText(datasets_.GetSelected());
        if (name == dataset_) return;
        SaveValues();
        dataset_ = name;
        LoadDataset(name);
    }

    void EditValue(RunTimePlace place) {
        auto entry = RTDataEntryAt(definition_, place);
        if (!entry) return;
        if (Defaults() != nullptr) Defaults()->GetTextAndKind(entry->key, entry->default_value, entry->kind);
        last_used_.GetText(entry->key, entry->last_value);
        values_.GetText(entry->key, entry->value);
        const auto edited = EditRTData(toolkit_, *entry, EditRTDataMode::kJobValue);
        if (!edited) return;
        values_.SetText(entry->key, edited->value, TextKind::kPlain);
        tables_.ShowValue(place, edited->value);
    }

    void OnRowChosen(int32_t row) {
        const auto rows = static_cast<int32_t>(definition_.rows().size());
        if (row < 1 || row > rows) return;
        const auto reset = AskForReset(toolkit_, definition_.rows()[static_cast<size_t>(row) - 1].name);
        if (!reset) return;
        const CKVItemContainer* const source = reset->to_defaults ? Defaults() : &last_used_;
        const int32_t first = reset->all_rows ? 1 : row;
        const int32_t last = reset->all_rows ? rows : row;
        for (int32_t each = first; each <= last; ++each) ResetRow(each, source);
    }

    void ResetRow(int32_t row, const CKVItemContainer* source) {
        const auto columns = static_cast<int32_t>(definition_.columns().size());
        for (int32_t column = 1; column <= columns; ++column) {
            const RunTimePlace place{row, column};
            const std::string key = WordOfPlace(place);
            std::string value;
            if (source != nullptr) source->GetText(key, value);
            values_.SetText(key, value, TextKind::kPlain);
            tables_.ShowValue(place, value);
        }
    }

    void ResetAllToDefaults() {
        if (Defaults() == nullptr) return;
        for (const auto& [key, item] : Defaults()->items()) {
            const auto* const text = dynamic_cast<const CTextKVItem*>(item.get());
            if (text != nullptr) values_.SetText(key, text->value(), TextKind::kPlain);
        }
        ShowValues();
    }

    void OnOk() {
        SaveValues();
        window_->EndWithOk();
    }

    CToolkit& toolkit_;
    const CRunTimeDataDef& definition_;
    std::string tuning_pick_;
    std::string dataset_;
    CKVItemContainer values_;
    CKVItemContainer last_used_;
    std::unique_ptr<CDialogWindow> window_;
    CListControl& datasets_;
    CRunTimeValueTables tables_;
};

}  // namespace

std::string DisplayRunTimeData(CToolkit& toolkit, const CRunTimeDataDef& definition, const std::string& tuning_pick,
                               const std::string& dataset, CKVItemContainer& run_values) {
    if (definition.datasets().size() == 0) {
        toolkit.ShowMessage(messages::kNoRunTimeData);
        return {};
    }
    CNCRunTimeDlg dialog(toolkit, definition, tuning_pick, dataset, run_values);
    if (!dialog.RunModal()) return {};
    run_values.Assign(dialog.values());
    return dialog.dataset();
}

}  // namespace brindle
