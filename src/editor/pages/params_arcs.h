// The page "ArcData": the words of arcs, and arcs that are cut as facets.
#pragma once

#include "editor/pages/per_tool_page.h"

namespace brindle {

class CNCParamsArcs : public CNCPerToolPage {
public:
    explicit CNCParamsArcs(const PageContext& context);

    void UpdateControlStates() override;
};

}  // namespace brindle
