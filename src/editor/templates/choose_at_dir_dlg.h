// The chooser of directives.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "editor/toolkit/windows.h"

namespace brindle {

class CChooseAtDirDlg {
public:
    // `directive`, for example `@Radius`, is selected at first, the first of all if it is none.
    CChooseAtDirDlg(CToolkit& toolkit, std::string_view directive);
    bool RunModal() { return window_->RunModal(); }
    // The chosen one, after OK.
    const std::string& directive() const { return directive_; }

private:
    void FillList();
    void OnOk();

    CToolkit& toolkit_;
    std::string directive_;
    std::unique_ptr<CDialogWindow> window_;
    CListControl& list_;
};

}  // namespace brindle
