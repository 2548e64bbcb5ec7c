#include "editor/run_time_data/rtd_def_editor.h"

#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "editor/messages.h"
#include "editor/run_time_data/run_time_questions.h"
#include "editor/run_time_data/run_time_value_tables.h"
#include "platform/local_time.h"

namespace brindle {
namespace {

// Lists all items with their hidden flags as values, and selects one, -1 for none.
void Refill(CListControl& list, const std::vector<CRunTimeDefItem>& items, int selected) {
    list.Empty();
    for (const CRunTimeDefItem& item : items) list.SetValue(list.AddEntry(MarkedName(item)), item.hidden ? 1 : 0);
    list.Select(selected);
}

// Works on a definition of its own. The datasets stay as they are: values of a deleted row remain under its word, which
// now points to the row after it.
class CRTDDefEditor {
public:
    CRTDDefEditor(CToolkit& toolkit, const CRunTimeDataDef& definition, bool allow_delete)
        : toolkit_(toolkit), window_(toolkit.MakeDialog("RunTimeData Definition Editor")) {
        definition_.Assign(definition);
        AddList({"Messages", "Description for new message:"}, definition_.messages(), allow_delete);
        AddList({"Columns", "Description for new column:"}, definition_.columns(), allow_delete);
        AddList({"Rows", "Description for new row:"}, definition_.rows(), allow_delete);
        window_->ok_clicked.Set([this] { OnOk(); });
    }
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

    void AddList(const ListTexts& texts, std::vector<CRunTimeDefItem>& items, bool allow_delete) {
        const Spot spot = lists_.empty() ? Spot::kNewRow : Spot::kNewColumn;
        CListControl& list = window_->AddList({ControlKind::kList, {}, {}, texts.heading, {}, spot});
        CButtonControl& hide = window_->AddButton({ControlKind::kCheck, {}, "Hide", texts.heading});
        CButtonControl& add = window_->AddButton({ControlKind::kButton, {}, "Add...", texts.heading});
        CButtonControl& remove =
            window_->AddButton({ControlKind::kButton, {}, "&Delete", texts.heading, {}, Spot::kBeside});
        EntryList& entries = lists_.emplace_back(EntryList{items, list, hide});

        Refill(list, items, -1);
        hide.Enable(false);
        remove.Enable(allow_delete);
        list.selected.Set([&list, &hide] {
            hide.SetCheck(list.GetValue(list.GetSelected()) != 0);
            hide.Enable(list.GetSelected() >= 0);
        });
        hide.clicked.Set([&list, &hide, &items] {
            const int selected = list.GetSelected();
            if (selected < 0) return;
            items[static_cast<size_t>(selected)].hidden = hide.GetCheck();
            Refill(list, items, selected);
        });
        add.clicked.Set([this, &entries, prompt = texts.prompt] { AddItem(entries, prompt); });
        remove.clicked.Set([this, &entries] { DeleteItem(entries); });
    }

    void AddItem(EntryList& entries, std::string_view prompt) {
        const auto name = AskForNewEntry(toolkit_, prompt);
        if (!name || name->empty()) return;
        entries.items.push_back({*name});
        entries.list.AddEntry(*name);
    }

    void DeleteItem(EntryList& entries) {
        const int selected = entries.list.GetSelected();
        if (selected < 0) {
            toolkit_.ShowMessage(messages::kSelectItemToDelete);
            return;
        }
        entries.items.erase(entries.items.begin() + selected);
        Refill(entries.list, entries.items, -1);
        entries.hide.Enable(false);
    }

    void OnOk() {
        definition_.set_last_update(Now());
        window_->EndWithOk();
    }

    CToolkit& toolkit_;
    CRunTimeDataDef definition_;
    std::unique_ptr<CDialogWindow> window_;
    std::deque<EntryList> lists_;
};

}  // namespace

bool EditDefinition(CToolkit& toolkit, CRunTimeDataDef& definition, bool allow_delete) {
    CRTDDefEditor editor(toolkit, definition, allow_delete);
    if (!editor.RunModal()) return false;
    definition.Assign(editor.definition());
    return true;
}

}  // namespace brindle
