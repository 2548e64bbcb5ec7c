// Exports of the dialogs. Without windows each ends as one that the user has cancelled.
#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

int GBrn_DisplayTuningDialog(int, const wchar_t*, int* result) {
    Session();
    Out(result, 0);
    return 0;
}

int GBrn_DisplayRTDataDlg(const wchar_t*, const wchar_t*, const wchar_t*, wchar_t** chosen) {
    Session();
    Out(chosen, "");
    return 0;
}

int GBrn_DisplayLoadSegmentDialog(void) {
    Session();
    return 0;
}
