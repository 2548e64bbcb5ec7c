#include "editor/run_time_data/run_time_questions.h"

#include <algorithm>
#include <vector>

#include "editor/messages.h"

namespace brindle {
namespace {

// Of two buttons the first one is marked. Gives the second.
CButtonControl& AddChoice(CForm& form, const char* group, std::string_view first, std::string_view second) {
    form.AddButton({ControlKind::kRadio, {}, std::string(first), group}).SetCheck(true);
    return form.AddButton({ControlKind::kRadio, {}, std::string(second), group});
}

// Messages first, then the values of each row.
std::vector<std::string> AddRunTimeValues(CListControl& list, const CRunTimeDataDef& definition) {
    std::vector<std::string> references;  // by the values of the entries
    const auto add = [&](std::string_view text, RunTimePlace place) {
        list.SetValue(list.AddEntry(text), static_cast<int32_t>(references.size()));
        references.push_back(WordOfPlace(place));
    };
    int32_t entry = 0;
    for (const CRunTimeDefItem& message : definition.messages()) add(message.name, {++entry, 0});
    entry = 0;
    for (const CRunTimeDefItem& row : definition.rows()) {
        ++entry;
        int32_t column = 0;
        for (const CRunTimeDefItem& item : definition.columns()) add(row.name + " - " + item.name, {entry, ++column});
    }
    return references;
}

}  // namespace

std::optional<std::string> AskForRunTimeValue(CToolkit& toolkit, const CRunTimeDataDef& definition,
                                              std::string_view reference) {
    const auto window = toolkit.MakeDialog("Choose Run Time Data");
    CControl& shown = window->AddLabel(PlainSpec(ControlKind::kLabel));
    CListControl& list = window->AddList(PlainSpec(ControlKind::kList));
    shown.SetText(reference);
    const std::vector<std::string> references = AddRunTimeValues(list, definition);
    list.selected.Set([&] {
        const auto entry = static_cast<size_t>(list.GetValue(list.GetSelected()));
        if (entry < references.size()) shown.SetText(references[entry]);
    });
    window->ok_clicked.Set([&] { window->EndWithOk(); });
    return window->RunModal() ? std::optional(shown.GetText()) : std::nullopt;
}

std::optional<std::string> AskForNewDataset(CToolkit& toolkit) {
    const auto window = toolkit.MakeDialog("New Dataset");
    CEditControl& field = window->AddEdit(PlainSpec(ControlKind::kText, "&Dataset name:"));
    field.TakeFocus();
    window->ok_clicked.Set([&] {
        std::string name = field.GetText();
        const auto is_blank = [](char c) { return c == ' ' || c == '\t'; };
        if (std::any_of(name.begin(), name.end(), is_blank)) {
            std::replace_if(name.begin(), name.end(), is_blank, '_');
            field.SetText(name);
        } else if (!name.empty()) {
            window->EndWithOk();
        }
    });
    return window->RunModal() ? std::optional(field.GetText()) : std::nullopt;
}

std::optional<std::string> AskForSourceDataset(CToolkit& toolkit, const CDataSetContainer& datasets,
                                               std::string_view current) {
    const auto window = toolkit.MakeDialog("Copy RTD Values");
    CListControl& list = window->AddList(PlainSpec(ControlKind::kList, "Copy RunTimeData default values from:"));
    for (size_t i = 0; i < datasets.size(); ++i) {
        if (const std::string name = datasets.NameAt(i); name != current) list.AddEntry(name);
    }
    list.Select(0);
    window->ok_clicked.Set([&] {
        if (list.GetSelected() < 0) return toolkit.ShowMessage(messages::kSelectDatasetToCopy);
        window->EndWithOk();
    });
    return window->RunModal() ? std::optional(list.GetEntryText(list.GetSelected())) : std::nullopt;
}

std::optional<std::string> AskForNewEntry(CToolkit& toolkit, std::string_view prompt) {
    const auto window = toolkit.MakeDialog("New RTD Definition");
    CEditControl& field = window->AddEdit(PlainSpec(ControlKind::kText, prompt));
    field.TakeFocus();
    window->ok_clicked.Set([&] { window->EndWithOk(); });
    return window->RunModal() ? std::optional(field.GetText()) : std::nullopt;
}

std::optional<ResetChoice> AskForReset(CToolkit& toolkit, std::string_view row_name) {
    const auto window = toolkit.MakeDialog("Reset Runtime Data");
    const CButtonControl& all_rows = AddChoice(*window, "Reset", row_name, "All rows");
    const CButtonControl& to_defaults = AddChoice(*window, "To", "Last used value", "Default value");
    window->ok_clicked.Set([&] { window->EndWithOk(); });
    if (!window->RunModal()) return std::nullopt;
    return ResetChoice{all_rows.GetCheck(), to_defaults.GetCheck()};
}

}  // namespace brindle
