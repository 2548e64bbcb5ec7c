// The window that shows the NC code of the tuning as it is now.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editor/toolkit/windows.h"
#include "session/session.h"

namespace brindle {

// Lists the trace of the last run that was asked for, and draws its tool path: a block that is chosen in the list is
// marked in the drawing, and the other way round. Opens with its construction next to the sheet, stays open while
// the user goes on editing, and ends when he closes it or when it is destroyed.
class CNCCodePreview {
public:
    // `closed` is called when the user closes the window, which must live until that call has returned to it.
    CNCCodePreview(CToolkit& toolkit, CSheetWindow& sheet, std::function<void()> closed);

    // Runs the tuning of `session`, which must outlive the window, over its geometry and shows the trace.
    void ShowRun(CSession& session);
    // Lists the trace of the last run anew, as the check boxes say.
    void RebuildList();
    // Lets the user choose a drawing, which takes the place of the session's geometry, and shows its run.
    void OpenDrawing();
    // Writes what is left in the current output buffer to a file that the user chooses, and so takes it from there.
    void SaveToFile();

private:
    void AddControls();
    std::string TextOfRow(int row) const;
    // Each marks in the one what the user has chosen in the other.
    void FollowList();
    void FollowDrawing();
    void Close();

    CToolkit& toolkit_;
    std::function<void()> closed_;
    CSession* session_ = nullptr;  // null until the first run
    std::unique_ptr<CModelessWindow> window_;
    CListControl* list_ = nullptr;
    CDrawingControl* drawing_ = nullptr;
    CButtonControl* show_errors_ = nullptr;
    CButtonControl* show_headers_ = nullptr;
    std::vector<uint32_t> shown_;  // trace record of each row of the list
    ToolPath path_;                // of the last run, without its elements
};

}  // namespace brindle
