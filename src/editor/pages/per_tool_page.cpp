#include "editor/pages/per_tool_page.h"

namespace brindle {

void CNCPerToolPage::CreateControls() {
    CNCTablePage::CreateControls();
    tools_.emplace(table().List(kTools), subordinates_).control().selected.Set([this] { OnToolSelected(); });
}

void CNCPerToolPage::BindControls() {
    CNCTablePage::BindControls();
    tools_->Fill(GetOptions());
    BindTool();
}

void CNCPerToolPage::OnToolSelected() {
    BindTool();
    UpdateControlStates();
}

}  // namespace brindle
