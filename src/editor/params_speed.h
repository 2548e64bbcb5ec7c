// The page "Speed": the words of speeds, and the speeds of each tool.
#pragma once

#include <optional>

#include "editor/per_tool_list_box.h"
#include "editor/table_page.h"

namespace brindle {

class CNCParamsSpeed : public CNCTablePage {
public:
    explicit CNCParamsSpeed(const PageContext& context);

    void UpdateControlStates() override;

protected:
    void CreateControls() override;
    void BindControls() override;

private:
    std::optional<CPerToolListBox> tools_;
};

}  // namespace brindle
