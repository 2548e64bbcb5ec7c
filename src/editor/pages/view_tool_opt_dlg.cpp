#include "editor/pages/view_tool_opt_dlg.h"

#include <algorithm>
#include <string>
#include <vector>

namespace brindle {
namespace {

struct ToolOption {
    std::string_view tool;
    std::string_view option;
    const CKVItem* item;
    std::string sort_key;
};

bool IsKeyOfTool(std::string_view key) {
    if (key.size() <= 3 || key[0] != 'T' || key.find('_') == std::string_view::npos) return false;
    return key[1] == '_' || (key[1] >= '0' && key[1] <= '9');
}

std::string WithoutUnderscores(std::string_view first, std::string_view second) {
    std::string text(first);
    text += second;
    std::erase(text, '_');
    return text;
}

std::vector<ToolOption> OptionsOf(const CKVItemContainer& tuning, bool by_option) {
    std::vector<ToolOption> options;
    for (const auto& [key, item] : tuning.items()) {
        if (!IsKeyOfTool(key)) continue;
        const size_t bar = key.find('_');
        const std::string_view tool = std::string_view(key).substr(0, bar);
        const std::string_view option = std::string_view(key).substr(bar + 1);
        options.push_back({tool, option, item.get(),
                           by_option ? WithoutUnderscores(option, tool) : WithoutUnderscores(tool, option)});
    }
    std::ranges::stable_sort(options, {}, &ToolOption::sort_key);
    return options;
}

}  // namespace

CViewToolOptDlg::CViewToolOptDlg(CToolkit& toolkit, const CKVItemContainer* tuning)
    : tuning_(tuning), window_(toolkit.MakeDialog("View Tool Options")) {
    AddSortButton("&Tool", SortBy::kTool).SetCheck(true);
    AddSortButton("&Option", SortBy::kOption);
    table_ = &window_->AddTable(PlainSpec(ControlKind::kTable));
    table_->AddColumn("Tool", 50);
    table_->AddColumn("Option", 130);
    table_->AddColumn("Value", 220);
    FillTable(SortBy::kTool);
    window_->ok_clicked.Set([this] { window_->EndWithOk(); });
}

CButtonControl& CViewToolOptDlg::AddSortButton(std::string_view label, SortBy sort_by) {
    CButtonControl& button = window_->AddButton(PlainSpec(ControlKind::kRadio, label));
    button.clicked.Set([this, sort_by] { FillTable(sort_by); });
    return button;
}

void CViewToolOptDlg::FillTable(SortBy sort_by) {
    table_->DeleteRows();
    if (tuning_ == nullptr) return;
    for (const ToolOption& option : OptionsOf(*tuning_, sort_by == SortBy::kOption)) {
        const int row = table_->AddRow();
        table_->SetCell({row, 0}, option.tool);
        table_->SetCell({row, 1}, option.option);
        table_->SetCell({row, 2}, option.item->GetValueText());
    }
}

}  // namespace brindle
