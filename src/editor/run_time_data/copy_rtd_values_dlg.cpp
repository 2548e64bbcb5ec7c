#include "editor/run_time_data/copy_rtd_values_dlg.h"

#include "editor/messages.h"

namespace brindle {

CCopyRTDValuesDlg::CCopyRTDValuesDlg(CToolkit& toolkit, const CDataSetContainer& datasets, std::string_view current)
    : toolkit_(toolkit),
      window_(toolkit.MakeDialog("Copy RTD Values")),
      list_(window_->AddList(PlainSpec(ControlKind::kList, "Copy RunTimeData default values from:"))) {
    for (size_t i = 0; i < datasets.size(); ++i) {
        if (const std::string name = datasets.NameAt(i); name != current) list_.AddEntry(name);
    }
    list_.Select(0);
    window_->ok_clicked.Set([this] { OnOk(); });
}

void CCopyRTDValuesDlg::OnOk() {
    if (list_.GetSelected() < 0) {
        toolkit_.ShowMessage(messages::kSelectDatasetToCopy);
    } else {
        window_->EndWithOk();
    }
}

}  // namespace brindle
