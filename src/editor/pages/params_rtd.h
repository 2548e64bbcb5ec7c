// The page "RunTimeData": the definition of the tuning's run-time data, and the default values in its datasets.
#pragma once

#include <memory>
#include <string>

#include "editor/pages/params_page.h"
#include "editor/run_time_data/run_time_value_tables.h"

namespace brindle {

// Edits definition and datasets in place. The dataset that is shown is the current one.
class CNCParamsRTD : public CNCParamsPage {
public:
    explicit CNCParamsRTD(const PageContext& context) : CNCParamsPage(context, "RunTimeData", Mark::kAtChange) {}

    // Makes `name` current and shows its values; one that does not exist has none.
    void ShowDataset(const std::string& name);

protected:
    void CreateControls() override;
    void BindControls() override;

private:
    void AddButton(const char* label, void (CNCParamsRTD::*on_click)(CRunTimeDataDef& definition));
    void FillDatasets();
    void ShowLastDataset();
    // Of the current dataset, null if there is none.
    CKVItemContainer* Values();

    void EditDefaultValue(RunTimePlace place);
    void OnAddDataset(CRunTimeDataDef& definition);
    void OnDeleteDataset(CRunTimeDataDef& definition);
    void OnCopyValues(CRunTimeDataDef& definition);
    void OnEditDefinition(CRunTimeDataDef& definition);

    std::unique_ptr<CRunTimeValueTables> tables_;
    CListControl* datasets_ = nullptr;
    std::string dataset_;
};

}  // namespace brindle
