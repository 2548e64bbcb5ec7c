// The page "Subs": sub-programs, their numbers, mirroring and rotation.
#pragma once

#include "editor/pages/table_page.h"

namespace brindle {

// Where the main program or the numbering leaves no choice, the page shows what a run will do; the keys keep what they
// say.
class CNCParamsSubs : public CNCTablePage {
public:
    explicit CNCParamsSubs(const PageContext& context);

    void UpdateControlStates() override;
    // Warns when mirrored or rotated sub-programs are allowed.
    void OnBoundButtonClicked(CKVItemButton& control) override;

private:
    void UpdateOutputMode();
    void UpdateNumbering();
};

}  // namespace brindle
