#include "editor/run_time_data/choose_run_time_data_dlg.h"

namespace brindle {

CChooseRunTimeDataDlg::CChooseRunTimeDataDlg(CToolkit& toolkit, const CRunTimeDataDef& definition,
                                             std::string_view reference)
    : window_(toolkit.MakeDialog("Choose Run Time Data")),
      shown_(window_->AddLabel(PlainSpec(ControlKind::kLabel))),
      list_(window_->AddList(PlainSpec(ControlKind::kList))) {
    shown_.SetText(reference);
    FillList(definition);
    list_.selected.Set([this] {
        const auto entry = static_cast<size_t>(list_.GetValue(list_.GetSelected()));
        if (entry < references_.size()) shown_.SetText(references_[entry]);
    });
    window_->ok_clicked.Set([this] { window_->EndWithOk(); });
}

void CChooseRunTimeDataDlg::FillList(const CRunTimeDataDef& definition) {
    size_t message = 0;
    for (const CRunTimeDefItem& item : definition.messages()) {
        AddEntry(item.name, "RTD(" + std::to_string(++message) + ')');
    }
    size_t row = 0;
    for (const CRunTimeDefItem& row_item : definition.rows()) {
        const std::string row_reference = "RTD(" + std::to_string(++row) + ',';
        size_t column = 0;
        for (const CRunTimeDefItem& column_item : definition.columns()) {
            AddEntry(row_item.name + " - " + column_item.name, row_reference + std::to_string(++column) + ')');
        }
    }
}

void CChooseRunTimeDataDlg::AddEntry(std::string_view text, std::string reference) {
    list_.SetValue(list_.AddEntry(text), static_cast<int32_t>(references_.size()));
    references_.push_back(std::move(reference));
}

}  // namespace brindle
