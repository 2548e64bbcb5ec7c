// The page "ToolRot": how the controller turns tools, and the rotation of each tool.
#pragma once

#include <optional>

#include "editor/per_tool_list_box.h"
#include "editor/table_page.h"

namespace brindle {

class CNCParamsToolRot : public CNCTablePage {
public:
    explicit CNCParamsToolRot(const PageContext& context);

    void UpdateControlStates() override;

protected:
    void CreateControls() override;
    void BindControls() override;

private:
    std::optional<CPerToolListBox> tools_;
};

}  // namespace brindle
