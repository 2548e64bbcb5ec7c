// The page "Text": the words of texts.
#pragma once

#include "editor/pages/table_page.h"

namespace brindle {

class CNCParamsText : public CNCTablePage {
public:
    explicit CNCParamsText(const PageContext& context);

    void UpdateControlStates() override { table().EnableOthers("bUseText", table().IsChecked("bUseText")); }
};

}  // namespace brindle
