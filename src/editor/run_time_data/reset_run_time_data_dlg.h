// The dialog that sets values of a job back.
#pragma once

#include <memory>
#include <string_view>

#include "editor/toolkit/windows.h"

namespace brindle {

// Asks what is to be reset, and to what: at first this row, to the last used value.
class CResetRunTimeDataDlg {
public:
    CResetRunTimeDataDlg(CToolkit& toolkit, std::string_view row_name);
    bool RunModal() { return window_->RunModal(); }
    bool all_rows() const { return all_rows_.GetCheck(); }
    bool to_defaults() const { return to_defaults_.GetCheck(); }

private:
    std::unique_ptr<CDialogWindow> window_;
    CButtonControl& all_rows_;
    CButtonControl& to_defaults_;
};

}  // namespace brindle
