#include "editor/run_time_data/reset_run_time_data_dlg.h"

namespace brindle {
namespace {

// Of two buttons the first one is marked. Gives the second.
CButtonControl& AddChoice(CForm& form, const char* group, std::string_view first, std::string_view second) {
    form.AddButton({ControlKind::kRadio, {}, std::string(first), group}).SetCheck(true);
    return form.AddButton({ControlKind::kRadio, {}, std::string(second), group});
}

}  // namespace

CResetRunTimeDataDlg::CResetRunTimeDataDlg(CToolkit& toolkit, std::string_view row_name)
    : window_(toolkit.MakeDialog("Reset Runtime Data")),
      all_rows_(AddChoice(*window_, "Reset", row_name, "All rows")),
      to_defaults_(AddChoice(*window_, "To", "Last used value", "Default value")) {
    window_->ok_clicked.Set([this] { window_->EndWithOk(); });
}

}  // namespace brindle
