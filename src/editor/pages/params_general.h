// The page "General": units, form of blocks, block numbers.
#pragma once

#include "editor/pages/table_page.h"

namespace brindle {

class CNCParamsGeneral : public CNCTablePage {
public:
    explicit CNCParamsGeneral(const PageContext& context);

    void UpdateControlStates() override;

protected:
    void CreateControls() override;
};

}  // namespace brindle
