// The page "Speed": the words of speeds, and the speeds of each tool.
#pragma once

#include "editor/pages/per_tool_page.h"

namespace brindle {

class CNCParamsSpeed : public CNCPerToolPage {
public:
    explicit CNCParamsSpeed(const PageContext& context);

    void UpdateControlStates() override;

protected:
    // The last tool is selected at first.
    void BindControls() override;
    void OnToolSelected() override { BindTool(); }
};

}  // namespace brindle
