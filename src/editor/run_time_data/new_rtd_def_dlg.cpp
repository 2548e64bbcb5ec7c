#include "editor/run_time_data/new_rtd_def_dlg.h"

namespace brindle {

CNewRTDDefDlg::CNewRTDDefDlg(CToolkit& toolkit, std::string_view prompt)
    : window_(toolkit.MakeDialog("New RTD Definition")),
      field_(window_->AddEdit(PlainSpec(ControlKind::kText, prompt))) {
    field_.TakeFocus();
    window_->ok_clicked.Set([this] { window_->EndWithOk(); });
}

}  // namespace brindle
