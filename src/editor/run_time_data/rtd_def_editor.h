// The dialog that edits the definition of run-time data: its messages, columns and rows.
#pragma once

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// Lets the user edit `definition`. False, with the definition as it was, if he cancelled.
bool EditDefinition(CToolkit& toolkit, CRunTimeDataDef& definition, bool allow_delete);

}  // namespace brindle
