// The page "Templates": all templates of the whole program, and the preview.
#pragma once

#include <memory>

#include "editor/pages/params_page.h"
#include "editor/templates/template_list_ctrl.h"

namespace brindle {

class CNCParamsTemplates : public CNCParamsPage {
public:
    explicit CNCParamsTemplates(const PageContext& context) : CNCParamsPage(context, "Templates", Mark::kAtChange) {}

protected:
    void CreateControls() override;
    void BindControls() override;

private:
    std::unique_ptr<CNCTemplateListCtrl> list_;
};

}  // namespace brindle
