#include "editor/per_tool_list_box.h"

#include <algorithm>

#include "tuning/options.h"

namespace brindle {
namespace {

// A tuning from a file can claim any number of tools; nobody picks one from a longer list.
constexpr int32_t kMostTools = 10000;
constexpr int32_t kDefaultTool = -1;

bool IsTrue(const CKVItemContainer& tuning, std::string_view key) {
    int32_t value = 0;
    return tuning.GetBool(key, value) && value != 0;
}

}  // namespace

void CPerToolListBox::Fill(const CKVItemContainer* tuning) {
    control_.Empty();
    if (tuning == nullptr) return;
    if (IsTrue(*tuning, "bDefaultTool")) Add("T", kDefaultTool);
    AddTools(*tuning);
    if (control_.GetCount() > 0) control_.Select(0);
}

void CPerToolListBox::AddTools(const CKVItemContainer& tuning) {
    int32_t count = 0;
    tuning.GetInt("nNumOfTools", count);
    for (int32_t tool = 1; tool <= std::min(count, kMostTools); ++tool) {
        const std::string prefix = ToolPrefixText(tool);
        if (!with_subordinates_ && IsTrue(tuning, prefix + "bToolSubordinate")) continue;
        if (IsTrue(tuning, prefix + "bToolUnused")) continue;
        Add(std::string("T").append(std::to_string(tool)), tool);
    }
}

void CPerToolListBox::Add(std::string_view text, int32_t tool) { control_.SetValue(control_.AddEntry(text), tool); }

std::string CPerToolListBox::GetToolPrefix() const {
    const int selected = control_.GetSelected();
    return selected < 0 ? std::string() : ToolPrefixText(control_.GetValue(selected));
}

}  // namespace brindle
