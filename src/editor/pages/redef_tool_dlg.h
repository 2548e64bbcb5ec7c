// The dialog that chooses the tool whose data another tool takes.
#pragma once

#include <cstdint>
#include <memory>

#include "editor/toolkit/windows.h"

namespace brindle {

class CRedefToolDlg {
public:
    // Lists the tools from 1 to `tool_count`. `tool` is the one to redefine; a negative number is a new one.
    CRedefToolDlg(CToolkit& toolkit, int32_t tool_count, int32_t tool);
    bool RunModal() { return window_->RunModal(); }
    // After OK.
    int32_t chosen() const { return list_.GetValue(list_.GetSelected()); }

private:
    void OnOk();

    std::unique_ptr<CDialogWindow> window_;
    CControl& prompt_;
    CListControl& list_;
};

}  // namespace brindle
