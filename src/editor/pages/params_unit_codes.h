// The page "Codes": the fixed codes of the controller, and fly mode.
#pragma once

#include <optional>

#include "editor/controls/per_tool_list_box.h"
#include "editor/pages/table_page.h"

namespace brindle {

// A tuning may hold codes of interpolation for all tools and others for each tool. The page edits those that a run
// takes, and leaves the others alone.
class CNCParamsUnitCodes : public CNCTablePage {
public:
    explicit CNCParamsUnitCodes(const PageContext& context);

    void UpdateControlStates() override;
    void OnBoundButtonClicked(CKVItemButton& control) override;

protected:
    void CreateControls() override;
    void BindControls() override;
    // With fly mode the templates before and after a change of it hold at least its code.
    void OnLeave() override;

private:
    void BindInterpolation();
    void BindFlyMode();

    std::optional<CPerToolListBox> interpolation_tools_;
    std::optional<CPerToolListBox> fly_tools_;
};

}  // namespace brindle
