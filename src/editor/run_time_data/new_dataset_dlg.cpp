#include "editor/run_time_data/new_dataset_dlg.h"

#include <algorithm>

namespace brindle {

CNewDatasetDlg::CNewDatasetDlg(CToolkit& toolkit)
    : window_(toolkit.MakeDialog("New Dataset")),
      field_(window_->AddEdit(PlainSpec(ControlKind::kText, "&Dataset name:"))) {
    field_.TakeFocus();
    window_->ok_clicked.Set([this] { OnOk(); });
}

void CNewDatasetDlg::OnOk() {
    std::string name = field_.GetText();
    const auto is_blank = [](char c) { return c == ' ' || c == '\t'; };
    if (std::any_of(name.begin(), name.end(), is_blank)) {
        std::replace_if(name.begin(), name.end(), is_blank, '_');
        field_.SetText(name);
    } else if (!name.empty()) {
        window_->EndWithOk();
    }
}

}  // namespace brindle
