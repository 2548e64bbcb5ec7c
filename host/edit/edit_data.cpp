#include "host/edit/edit_data.h"

#include <iostream>

#include "brindle/brindle.h"
#include "host/commands/commands.h"
#include "host/console/messages.h"
#include "host/post/run_data.h"

namespace brindle::host {

int EditData(const LoadedTuning& tuning, const std::string& dataset, const std::string& tuning_pick) {
    if (dataset.empty()) {
        PrintError({tuning.definition_name}, "defines no dataset: there are no values to edit");
        return kBadInput;
    }
    if (!HasEditor()) return kBadInput;
    GBrn_Clear();
    SendTuning(tuning, {dataset, {}, {}}, {});
    wchar_t* text = nullptr;
    GBrn_DisplayRTDataDlg(L"", Wide(dataset).c_str(), Wide(tuning_pick).c_str(), &text);
    const std::string chosen = Taken(text);
    GBrn_Clear();
    if (chosen.empty()) {
        PrintNote({tuning.definition_name}, "editing was cancelled: values and dataset stay as they were");
    } else {
        std::cout << PrintableText(chosen) << '\n';
    }
    return kGood;
}

}  // namespace brindle::host
