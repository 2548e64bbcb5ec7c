// The dialog that lists all options of all tools.
#pragma once

#include <memory>

#include "editor/toolkit/windows.h"
#include "tuning/kv_container.h"

namespace brindle {

// Opens sorted by tool; the user can have it sorted by option.
class CViewToolOptDlg {
public:
    // `tuning` must outlive the dialog; null shows an empty table.
    CViewToolOptDlg(CToolkit& toolkit, const CKVItemContainer* tuning);
    bool RunModal() { return window_->RunModal(); }

private:
    enum class SortBy { kTool, kOption };

    CButtonControl& AddSortButton(std::string_view label, SortBy sort_by);
    void FillTable(SortBy sort_by);

    const CKVItemContainer* tuning_;
    std::unique_ptr<CDialogWindow> window_;
    CTableControl* table_ = nullptr;
};

}  // namespace brindle
