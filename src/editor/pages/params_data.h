// The page "AxisData": format and addresses of the axes.
#pragma once

#include "editor/pages/table_page.h"

namespace brindle {

// Both axes show the one setting of a rotary axis; only that of the rotary axis is in view.
class CNCParamsData : public CNCTablePage {
public:
    explicit CNCParamsData(const PageContext& context);

    void UpdateControlStates() override;
};

}  // namespace brindle
