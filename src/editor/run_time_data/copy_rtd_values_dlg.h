// The dialog that chooses the dataset whose values are copied into another.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

class CCopyRTDValuesDlg {
public:
    // Lists all datasets but `current`.
    CCopyRTDValuesDlg(CToolkit& toolkit, const CDataSetContainer& datasets, std::string_view current);
    bool RunModal() { return window_->RunModal(); }
    // After OK: the name of one of them.
    std::string chosen() const { return list_.GetEntryText(list_.GetSelected()); }

private:
    void OnOk();

    CToolkit& toolkit_;
    std::unique_ptr<CDialogWindow> window_;
    CListControl& list_;
};

}  // namespace brindle
