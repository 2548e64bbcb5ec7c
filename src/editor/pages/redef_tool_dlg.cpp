#include "editor/pages/redef_tool_dlg.h"

#include <string>

#include "editor/controls/per_tool_list_box.h"

namespace brindle {
namespace {

std::string PromptFor(int32_t tool) {
    const std::string what = tool < 0 ? "Define new tool" : "Redefine tool " + std::to_string(tool);
    return what + " using data from which tool?";
}

}  // namespace

std::optional<int32_t> ChooseSourceTool(CToolkit& toolkit, int32_t tool_count, int32_t tool) {
    const auto window = toolkit.MakeDialog("Define Tool");
    window->AddLabel(PlainSpec(ControlKind::kLabel)).SetText(PromptFor(tool));
    CListControl& list = window->AddList(PlainSpec(ControlKind::kList));
    for (int32_t source = 1; source <= ListedTools(tool_count); ++source) AddToolEntry(list, source);
    list.Select(0);
    window->ok_clicked.Set([&] {
        if (list.GetSelected() >= 0) window->EndWithOk();
    });
    return window->RunModal() ? std::optional(list.GetValue(list.GetSelected())) : std::nullopt;
}

}  // namespace brindle
