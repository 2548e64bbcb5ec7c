#include "editor/run_time_data/edit_rt_data_dlg.h"

namespace brindle {
namespace {

constexpr char kKindGroup[] = "Kind";

// Null if there is no entry of that number.
const CRunTimeDefItem* ItemAt(const std::vector<CRunTimeDefItem>& items, int32_t number) {
    const auto index = static_cast<size_t>(number) - 1;
    return index < items.size() ? &items[index] : nullptr;
}

void AddLabel(CForm& form, const std::string& caption, const std::string& text) {
    form.AddLabel(PlainSpec(ControlKind::kLabel, caption)).SetText(text);
}

// Gives the button for an expression.
CButtonControl& AddKinds(CForm& form, TextKind kind, bool shown) {
    CButtonControl& plain = form.AddButton({ControlKind::kRadio, {}, "Static value", kKindGroup});
    CButtonControl& expression = form.AddButton({ControlKind::kRadio, {}, "Expression", kKindGroup, {}, Spot::kBeside});
    plain.SetCheck(kind == TextKind::kPlain);
    expression.SetCheck(kind != TextKind::kPlain);
    plain.Show(shown);
    expression.Show(shown);
    return expression;
}

}  // namespace

std::optional<RTDataEntry> RTDataEntryAt(const CRunTimeDataDef& definition, RunTimePlace place) {
    const std::string key = WordOfPlace(place);
    const CRunTimeDefItem* const first =
        ItemAt(place.IsMessage() ? definition.messages() : definition.rows(), place.entry);
    if (first == nullptr) return std::nullopt;
    if (place.IsMessage()) return RTDataEntry{key, "Message", first->name, {}, {}};
    const CRunTimeDefItem* const column = ItemAt(definition.columns(), place.column);
    if (column == nullptr) return std::nullopt;
    return RTDataEntry{key, "Row", first->name, "Column", column->name};
}

std::optional<EditedRTData> EditRTData(CToolkit& toolkit, const RTDataEntry& entry, EditRTDataMode mode) {
    const bool is_job_value = mode == EditRTDataMode::kJobValue;
    const auto window = toolkit.MakeDialog(is_job_value ? "Edit RunTimeData" : "Edit Default Value");
    AddLabel(*window, is_job_value ? "Default value:" : "", entry.default_value);
    AddLabel(*window, is_job_value ? "Last used value:" : "", entry.last_value);
    CEditControl& field = window->AddEdit(PlainSpec(ControlKind::kText, "Value:"));
    field.SetText(entry.value);
    AddLabel(*window, "", entry.key);
    AddLabel(*window, entry.first_title, entry.first_text);
    AddLabel(*window, entry.second_title, entry.second_text);
    const CButtonControl& expression = AddKinds(*window, entry.kind, !is_job_value);
    const bool is_computed = is_job_value && entry.kind != TextKind::kPlain;
    AddLabel(*window, "", is_computed ? "(calculated from an expression)" : "");
    const auto add_use_button = [&](const char* caption, const std::string& value, Spot spot) {
        CButtonControl& button = window->AddButton({ControlKind::kButton, {}, caption, {}, {}, spot});
        button.Show(is_job_value);
        button.Enable(!value.empty());
        button.clicked.Set([&, value] {
            field.SetText(value);
            window->EndWithOk();
        });
    };
    add_use_button("Use Last Value", entry.last_value, Spot::kNewRow);
    add_use_button("Use Default Value", entry.default_value, Spot::kBeside);
    field.TakeFocus();
    window->ok_clicked.Set([&] { window->EndWithOk(); });
    if (!window->RunModal()) return std::nullopt;
    return EditedRTData{field.GetText(), expression.GetCheck() ? TextKind::kTextExpression : TextKind::kPlain};
}

}  // namespace brindle
