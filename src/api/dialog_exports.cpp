// Exports of the dialogs. Without a toolkit each ends as one that the user has cancelled.
#include "api/exports.h"
#include "brindle/brindle.h"
#include "editor/load_segment_dlg.h"
#include "editor/params_sheet.h"
#include "editor/toolkit/active_toolkit.h"

using namespace brindle;

int GBrn_DisplayTuningDialog(int inches, const wchar_t* title, int* result) {
    const SessionParts session = Session().Parts();
    bool with_ok = false;
    if (CToolkit* const toolkit = ActiveToolkit()) {
        CNCParamsSheet sheet(*toolkit, &session, inches != 0, In(title));
        sheet.AddPages();
        with_ok = sheet.RunModal();
    }
    Out(result, with_ok ? 1 : 0);
    return 0;
}

int GBrn_DisplayRTDataDlg(const wchar_t*, const wchar_t*, const wchar_t*, wchar_t** chosen) {
    Session();
    Out(chosen, "");
    return 0;
}

int GBrn_DisplayLoadSegmentDialog(void) {
    CBufferMgr& buffers = Session().buffers;
    if (CToolkit* const toolkit = ActiveToolkit()) ChooseSegment(*toolkit, buffers);
    return 0;
}
