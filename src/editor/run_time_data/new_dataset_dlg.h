// The dialog that asks for the name of a new dataset.
#pragma once

#include <memory>
#include <string>

#include "editor/toolkit/windows.h"

namespace brindle {

// Names hold no blanks, because the lines of a definition don't escape them: OK turns them into `_` and waits for the
// user to confirm.
class CNewDatasetDlg {
public:
    explicit CNewDatasetDlg(CToolkit& toolkit);
    bool RunModal() { return window_->RunModal(); }
    // After OK: not empty.
    std::string name() const { return field_.GetText(); }

private:
    void OnOk();

    std::unique_ptr<CDialogWindow> window_;
    CEditControl& field_;
};

}  // namespace brindle
