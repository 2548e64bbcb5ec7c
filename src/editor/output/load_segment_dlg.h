// The dialog that chooses one of the segments of an output.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "editor/toolkit/windows.h"
#include "generator/buffer_mgr.h"

namespace brindle {

class CLoadSegmentDlg {
public:
    CLoadSegmentDlg(CToolkit& toolkit, int32_t count);
    bool RunModal() { return window_->RunModal(); }
    // After OK: from 1 to the count.
    int32_t segment() const { return segment_; }

private:
    void OnOk();

    CToolkit& toolkit_;
    int32_t count_;
    int32_t segment_ = 1;
    std::unique_ptr<CDialogWindow> window_;
    CEditControl& field_;
};

// Lets the user choose the current buffer. Does nothing if there is no choice.
void ChooseSegment(CToolkit& toolkit, CBufferMgr& buffers);

}  // namespace brindle
