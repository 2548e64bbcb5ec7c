// The list of templates with their lines, on the page of templates and on that of tools.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editor/toolkit/windows.h"
#include "tuning/kv_container.h"

namespace brindle {

// A template of a list.
struct CKVInfo {
    std::string prefix;  // of its keys, for example `FileStart_` or `T3_ToolSel_`
    std::string name;    // as the list shows it
};

// A row a line; an empty template has one row all the same, so that it can be opened. A double click on any row of a
// template, the empty row after it included, opens its editor.
class CNCTemplateListCtrl {
public:
    // `control` must outlive this.
    CNCTemplateListCtrl(CToolkit& toolkit, CTableControl& control) : toolkit_(toolkit), control_(control) {}

    // Once, before anything else. `per_tool` adds the columns of the three modal words that a tool's template can
    // clear.
    void InitColumns(bool per_tool);
    void ClearInfos();
    void AddInfo(std::string_view name, std::string_view prefix);
    // Makes all rows anew; `separators` puts an empty row after each template. Null is an empty list.
    void Fill(const CKVItemContainer* tuning, bool separators);
    // Opens the editor of the template under the pointer.
    void EditAtPointer(CKVItemContainer* tuning);
    CTableControl& control() { return control_; }

private:
    void AddTemplate(const CKVItemContainer& tuning, int32_t index);
    int AddRow(int32_t index);
    void SetClearCells(const CKVItemContainer& tuning, const std::string& prefix, int row);

    CToolkit& toolkit_;
    CTableControl& control_;
    std::vector<CKVInfo> infos_;
    bool per_tool_ = false;
    bool separators_ = false;
};

}  // namespace brindle
