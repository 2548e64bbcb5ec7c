// The dialog in which the user looks at the run-time values of a job before it is run, and changes them.
#pragma once

#include <memory>
#include <string>

#include "editor/run_time_data/run_time_value_tables.h"
#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// Works on copies of the dataset's name and of the run's values. What the user leaves, by OK or for another
// dataset, is stored as the values last used; Cancel takes back no store.
class CNCRunTimeDlg {
public:
    // `definition` must outlive the dialog. An empty `dataset` is the first of the definition.
    CNCRunTimeDlg(CToolkit& toolkit, const CRunTimeDataDef& definition, std::string tuning_pick, std::string dataset,
                  const CKVItemContainer& values);
    bool RunModal();

    const std::string& dataset() const { return dataset_; }
    const CKVItemContainer& values() const { return values_; }

    // Puts the values of a dataset in the place of all there are: defaults and what was last used. May ask the user.
    void LoadDataset(const std::string& name);
    // Shows the messages and rows that are not hidden, with their values.
    void ShowValues();

private:
    // In the list; 0 for one that is not there. Case is a help, not a difference.
    int PlaceOfDataset() const;
    void SelectDataset();
    void LoadLastUsed();
    void SaveValues() const;
    // Of the current dataset, null if there is none.
    const CKVItemContainer* Defaults() const;

    void OnDatasetSelected();
    void EditValue(RunTimePlace place);
    void OnRowChosen(int32_t row);
    void ResetRow(int32_t row, const CKVItemContainer* source);
    void ResetAllToDefaults();
    void OnOk();

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

// Lets the user choose a dataset, `dataset` at first, and its values for the next run. Gives the chosen one and puts
// the values into `run_values`. Gives empty text, with `run_values` as they were, if the user cancelled, or if the
// definition has no dataset, which a message says.
std::string DisplayRunTimeData(CToolkit& toolkit, const CRunTimeDataDef& definition, const std::string& tuning_pick,
                               const std::string& dataset, CKVItemContainer& run_values);

}  // namespace brindle
