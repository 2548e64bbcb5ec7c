// Exports of the dialogs. Without a toolkit each ends as one that the user has cancelled.
#include "api/exports.h"
#include "brindle/brindle.h"
#include "editor/output/load_segment_dlg.h"
#include "editor/pages/params_sheet.h"
#include "editor/run_time_data/nc_run_time_dlg.h"
#include "editor/toolkit/active_toolkit.h"

using namespace brindle;

int GBrn_DisplayTuningDialog(int inches, const wchar_t* title, int* result) {
    return Export([&] {
        CSession& session = Session();
        bool with_ok = false;
        if (CToolkit* const toolkit = ActiveToolkit()) {
            CNCParamsSheet sheet(*toolkit, &session, inches != 0, In(title));
            sheet.AddPages();
            with_ok = sheet.RunModal();
        }
        Out(result, with_ok ? 1 : 0);
    });
}

int GBrn_DisplayRTDataDlg(const wchar_t* definition_path, const wchar_t* dataset, const wchar_t* tuning_pick,
                          wchar_t** chosen) {
    return Export([&] {
        CBrindleMgr& session = Session();
        std::string chosen_dataset;
        if (CToolkit* const toolkit = ActiveToolkit()) {
            const std::string path = In(definition_path);
            CRunTimeDataDef file_definition;
            file_definition.ReadFromFile(path, CRunTimeDataDef::ReadMode::kCollect);
            const CRunTimeDataDef& definition = path.empty() ? session.tuning.definition() : file_definition;
            chosen_dataset = DisplayRunTimeData(*toolkit, definition, In(tuning_pick), In(dataset), session.run_values);
        }
        Out(chosen, chosen_dataset);
    });
}

int GBrn_DisplayLoadSegmentDialog(void) {
    return Export([&] {
        CBufferMgr& buffers = Session().buffers;
        if (CToolkit* const toolkit = ActiveToolkit()) ChooseSegment(*toolkit, buffers);
    });
}
