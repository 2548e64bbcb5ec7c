#include "editor/pages/params_page.h"

#include "editor/output/code_preview.h"

namespace brindle {

CNCParamsPage::CNCParamsPage(const PageContext& context, std::string_view caption, Mark mark)
    : context_(context), form_(context.window.AddPage(caption)), mark_(mark) {
    form_.activated.Set([this] { Activate(); });
    form_.left.Set([this] { OnLeave(); });
}

void CNCParamsPage::Activate() {
    if (!has_controls_) CreateControls();
    has_controls_ = true;
    if (mark_ == Mark::kAtActivation) SetModified(true);
    if (GetOptions() != nullptr) BindControls();
    UpdateControlStates();
}

void CNCParamsPage::RunPreview() {
    CNCCodePreview& preview = context_.preview();
    if (GetOptions() != nullptr) preview.ShowRun(*context_.session);
    SetModified(false);
}

}  // namespace brindle
