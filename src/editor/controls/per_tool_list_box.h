// The list of tools next to the controls of per-tool keys.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "editor/toolkit/controls.h"
#include "tuning/kv_container.h"

namespace brindle {

// The number of the default tool.
inline constexpr int32_t kDefaultTool = -1;

// How many numbered tools lists show of a tuning with `count` tools, which can be any number in a tuning from a file:
// nobody picks one from a list that is longer.
constexpr int32_t ListedTools(int32_t count) { return std::min(count, 10000); }

// Adds the entry of a tool, `T2` with the value 2 or `T` for the default tool.
void AddToolEntry(CListControl& list, int32_t tool);

// Holds the tools of a tuning that are in use. A page binds its per-tool controls to GetToolPrefix and the key, again
// after each change of selection: by then an edit that had the focus has written its value under the key of the old
// tool.
class CPerToolListBox {
public:
    enum class Subordinates : uint8_t { kListed, kLeftOut };

    // `control` must outlive this.
    CPerToolListBox(CListControl& control, Subordinates subordinates)
        : control_(control), subordinates_(subordinates) {}

    // Selects the first tool. Without a tuning the list is empty.
    void Fill(const CKVItemContainer* tuning);
    // Empty if no tool is selected.
    std::string GetToolPrefix() const;
    CListControl& control() { return control_; }

private:
    void AddTools(const CKVItemContainer& tuning);

    CListControl& control_;
    Subordinates subordinates_;
};

}  // namespace brindle
