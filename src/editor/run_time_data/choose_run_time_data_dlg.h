// The chooser of run-time values.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// Lists all values of a definition, hidden ones too. Nothing is selected at first.
class CChooseRunTimeDataDlg {
public:
    // `reference`, for example `RTD(2,3)`, is what OK gives if nothing is chosen; it can be any text.
    CChooseRunTimeDataDlg(CToolkit& toolkit, const CRunTimeDataDef& definition, std::string_view reference);
    bool RunModal() { return window_->RunModal(); }
    std::string reference() const { return shown_.GetText(); }

private:
    void FillList(const CRunTimeDataDef& definition);
    void AddEntry(std::string_view text, std::string reference);

    std::unique_ptr<CDialogWindow> window_;
    CControl& shown_;
    CListControl& list_;
    std::vector<std::string> references_;  // by the values of the entries
};

}  // namespace brindle
