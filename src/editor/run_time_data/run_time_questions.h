// Small dialogs that ask for one thing of run-time data. Each opens, and gives what the user chose, nothing if he
// cancelled.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// A value of the definition, hidden ones too, as its reference, for example `RTD(2,3)`. Nothing is selected at first;
// without a choice OK gives `reference`, which can be any text.
std::optional<std::string> AskForRunTimeValue(CToolkit& toolkit, const CRunTimeDataDef& definition,
                                              std::string_view reference);

// The name of a new dataset. Names hold no blanks, because the lines of a definition don't escape them: OK turns them
// into `_` and waits for the user to confirm.
std::optional<std::string> AskForNewDataset(CToolkit& toolkit);

// One of the datasets but `current`, whose values are to be copied.
std::optional<std::string> AskForSourceDataset(CToolkit& toolkit, const CDataSetContainer& datasets,
                                               std::string_view current);

// The name of a new message, column or row, which can be empty. `prompt` is shown before the field.
std::optional<std::string> AskForNewEntry(CToolkit& toolkit, std::string_view prompt);

// What values of a job are to be reset, and to what: at first this row, to the last used value.
struct ResetChoice {
    bool all_rows, to_defaults;
};
std::optional<ResetChoice> AskForReset(CToolkit& toolkit, std::string_view row_name);

}  // namespace brindle
