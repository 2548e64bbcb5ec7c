// The page "ToolRot": how the controller turns tools, and the rotation of each tool.
#pragma once

#include "editor/pages/per_tool_page.h"

namespace brindle {

class CNCParamsToolRot : public CNCPerToolPage {
public:
    explicit CNCParamsToolRot(const PageContext& context);

    void UpdateControlStates() override;
};

}  // namespace brindle
