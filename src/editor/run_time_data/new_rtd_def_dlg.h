// The dialog that asks for the name of a new message, column or row.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "editor/toolkit/windows.h"

namespace brindle {

class CNewRTDDefDlg {
public:
    // `prompt` is shown before the field.
    CNewRTDDefDlg(CToolkit& toolkit, std::string_view prompt);
    bool RunModal() { return window_->RunModal(); }
    // Can be empty.
    std::string description() const { return field_.GetText(); }

private:
    std::unique_ptr<CDialogWindow> window_;
    CEditControl& field_;
};

}  // namespace brindle
