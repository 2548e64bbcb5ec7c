// Pages whose controls are the rows of a table.
#pragma once

#include "editor/controls/page_table.h"
#include "editor/pages/params_page.h"

namespace brindle {

// Makes all controls of its table, and binds those that are not per tool.
class CNCTablePage : public CNCParamsPage {
public:
    CNCTablePage(const PageContext& context, std::string_view caption, Mark mark, std::span<const PageRow> rows)
        : CNCParamsPage(context, caption, mark), table_(rows) {}

protected:
    void CreateControls() override { table_.Create(Place()); }
    void BindControls() override { table_.Bind(GetOptions(), IsInches()); }

    CPageTable& table() { return table_; }
    // Binds the per-tool rows to the keys with `tool_prefix`; an empty one unbinds them.
    void BindPerTool(std::string_view tool_prefix) { table_.BindPerTool(GetOptions(), tool_prefix, IsInches()); }

private:
    CPageTable table_;
};

}  // namespace brindle
