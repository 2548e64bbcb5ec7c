#include "editor/params_page.h"

#include "editor/code_preview.h"
#include "editor/params_sheet.h"

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

bool CNCParamsPage::IsInches() const { return context_.sheet != nullptr && context_.sheet->IsInches(); }

CNCCodePreview* CNCParamsPage::GetPreview() const {
    return context_.sheet == nullptr ? nullptr : &context_.sheet->GetPreview();
}

void CNCParamsPage::RunPreview() {
    CNCCodePreview* const preview = GetPreview();
    if (preview != nullptr && GetOptions() != nullptr) preview->ShowRun(*context_.session);
    SetModified(false);
}

}  // namespace brindle
