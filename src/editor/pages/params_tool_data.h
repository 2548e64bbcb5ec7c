// The page "Tools": makes, copies and removes tools, and edits nearly all keys of a tool.
#pragma once

#include <cstdint>
#include <memory>

#include "editor/controls/per_tool_list_box.h"
#include "editor/pages/table_page.h"
#include "editor/templates/template_list_ctrl.h"

namespace brindle {

// A tool is a number up to the count of tools, and the keys with its prefix; the tuning holds no more of it.
class CNCParamsToolData : public CNCTablePage {
public:
    explicit CNCParamsToolData(const PageContext& context);

    // Makes `tool` the current one and binds all per-tool controls to it. Tool 0 is none: the list of templates is
    // emptied, and all else stays.
    void SelectTool(int32_t tool);
    // Lists the tools anew; none is selected then.
    void FillToolCombo();

    void UpdateControlStates() override;
    void OnBoundButtonClicked(CKVItemButton& control) override;

protected:
    void CreateControls() override;
    void BindControls() override;

private:
    CListControl& ToolList();
    // The default tool where none is selected.
    int32_t SelectedTool();
    void SelectFirstTool();
    void ShowToolCount();
    void SetToolCount(int32_t count);

    void FillMasters();
    void FillTemplates();
    void OnMasterChosen();

    void EnableToolGroups(bool regular);
    void EnableByValues();

    void OnCreateTool();
    void OnRedefineTool();
    void OnDeleteTool();
    void OnViewTools();

    int32_t tool_count_ = 0;
    int32_t current_tool_ = kDefaultTool;
    std::unique_ptr<CNCTemplateListCtrl> templates_;
};

}  // namespace brindle
