#include "editor/controls/per_tool_list_box.h"

#include "tuning/options.h"

namespace brindle {

void AddToolEntry(CListControl& list, int32_t tool) {
    const int index = list.AddEntry(tool < 0 ? "T" : std::string("T").append(std::to_string(tool)));
    list.SetValue(index, tool);
}

void CPerToolListBox::Fill(const CKVItemContainer* tuning) {
    control_.Empty();
    if (tuning == nullptr) return;
    if (IsTrue(tuning, "bDefaultTool")) AddToolEntry(control_, kDefaultTool);
    AddTools(*tuning);
    if (control_.GetCount() > 0) control_.Select(0);
}

void CPerToolListBox::AddTools(const CKVItemContainer& tuning) {
    int32_t count = 0;
    tuning.GetInt("nNumOfTools", count);
    for (int32_t tool = 1; tool <= ListedTools(count); ++tool) {
        const std::string prefix = ToolPrefixText(tool);
        if (subordinates_ == Subordinates::kLeftOut && IsTrue(&tuning, prefix + "bToolSubordinate")) continue;
        if (IsTrue(&tuning, prefix + "bToolUnused")) continue;
        AddToolEntry(control_, tool);
    }
}

std::string CPerToolListBox::GetToolPrefix() const {
    const int selected = control_.GetSelected();
    return selected < 0 ? std::string() : ToolPrefixText(control_.GetValue(selected));
}

}  // namespace brindle
