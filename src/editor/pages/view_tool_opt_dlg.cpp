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

void FillTable(CTableControl& table, const CKVItemContainer* tuning, bool by_option) {
    table.DeleteRows();
    if (tuning == nullptr) return;
    for (const ToolOption& option : OptionsOf(*tuning, by_option)) {
        const int row = table.AddRow();
        table.SetCell({row, 0}, option.tool);
        table.SetCell({row, 1}, option.option);
        table.SetCell({row, 2}, option.item->GetValueText());
    }
}

}  // namespace

void ViewToolOptions(CToolkit& toolkit, const CKVItemContainer* tuning) {
    const auto window = toolkit.MakeDialog("View Tool Options");
    CButtonControl& by_tool = window->AddButton(PlainSpec(ControlKind::kRadio, "&Tool"));
    CButtonControl& by_option = window->AddButton(PlainSpec(ControlKind::kRadio, "&Option"));
    CTableControl& table = window->AddTable(PlainSpec(ControlKind::kTable));
    by_tool.SetCheck(true);
    by_tool.clicked.Set([&] { FillTable(table, tuning, false); });
    by_option.clicked.Set([&] { FillTable(table, tuning, true); });
    table.AddColumn("Tool", 50);
    table.AddColumn("Option", 130);
    table.AddColumn("Value", 220);
    FillTable(table, tuning, false);
    window->ok_clicked.Set([&] { window->EndWithOk(); });
    window->RunModal();
}

}  // namespace brindle
