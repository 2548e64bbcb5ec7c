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

CRedefToolDlg::CRedefToolDlg(CToolkit& toolkit, int32_t tool_count, int32_t tool)
    : window_(toolkit.MakeDialog("Define Tool")),
      prompt_(window_->AddLabel(PlainSpec(ControlKind::kLabel))),
      list_(window_->AddList(PlainSpec(ControlKind::kList))) {
    prompt_.SetText(PromptFor(tool));
    for (int32_t source = 1; source <= ListedTools(tool_count); ++source) AddToolEntry(list_, source);
    list_.Select(0);
    window_->ok_clicked.Set([this] { OnOk(); });
}

void CRedefToolDlg::OnOk() {
    if (list_.GetSelected() >= 0) window_->EndWithOk();
}

}  // namespace brindle
