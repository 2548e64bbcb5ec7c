// The page "ArcData": the words of arcs, and arcs that are cut as facets.
#pragma once

#include <optional>

#include "editor/per_tool_list_box.h"
#include "editor/table_page.h"

namespace brindle {

class CNCParamsArcs : public CNCTablePage {
public:
    explicit CNCParamsArcs(const PageContext& context);

    void UpdateControlStates() override;

protected:
    void CreateControls() override;
    void BindControls() override;

private:
    void BindTool();

    std::optional<CPerToolListBox> tools_;
};

}  // namespace brindle
