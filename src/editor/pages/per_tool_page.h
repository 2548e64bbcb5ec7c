// Pages with a list of tools, and controls for the keys of the one that is selected.
#pragma once

#include <optional>

#include "editor/controls/per_tool_list_box.h"
#include "editor/pages/table_page.h"

namespace brindle {

// Its table has a list of the name kTools.
class CNCPerToolPage : public CNCTablePage {
public:
    using Subordinates = CPerToolListBox::Subordinates;

    CNCPerToolPage(const PageContext& context, std::string_view caption, Mark mark, std::span<const PageRow> rows,
                   Subordinates subordinates)
        : CNCTablePage(context, caption, mark, rows), subordinates_(subordinates) {}

    static constexpr std::string_view kTools = "tools";

protected:
    void CreateControls() override;
    void BindControls() override;
    virtual void OnToolSelected();

    void BindTool() { BindPerTool(tools_->GetToolPrefix()); }
    CListControl& tools() { return tools_->control(); }

private:
    Subordinates subordinates_;
    std::optional<CPerToolListBox> tools_;
};

}  // namespace brindle
