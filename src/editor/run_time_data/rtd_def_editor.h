// The dialog that edits the definition of run-time data: its messages, columns and rows.
#pragma once

#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "editor/toolkit/windows.h"
#include "tuning/run_time_data_def.h"

namespace brindle {

// Works on a definition of its own. The datasets stay as they are: values of a deleted row remain under its word, which
// now points to the row after it.
class CRTDDefEditor {
public:
    CRTDDefEditor(CToolkit& toolkit, const CRunTimeDataDef& definition, bool allow_delete);
    bool RunModal() { return window_->RunModal(); }
    // After OK: updated now.
    const CRunTimeDataDef& definition() const { return definition_; }

private:
    struct ListTexts {
        const char* heading;
        std::string_view prompt;  // for a new entry
    };
    struct EntryList {
        std::vector<CRunTimeDefItem>& items;
        CListControl& list;
        CButtonControl& hide;
    };

    void AddList(const ListTexts& texts, std::vector<CRunTimeDefItem>& items, bool allow_delete);
    void AddItem(EntryList& entries, std::string_view prompt);
    void DeleteItem(EntryList& entries);
    void OnOk();

    CToolkit& toolkit_;
    CRunTimeDataDef definition_;
    std::unique_ptr<CDialogWindow> window_;
    std::deque<EntryList> lists_;
};

// Lets the user edit `definition`. False, with the definition as it was, if he cancelled.
bool EditDefinition(CToolkit& toolkit, CRunTimeDataDef& definition, bool allow_delete);

}  // namespace brindle
