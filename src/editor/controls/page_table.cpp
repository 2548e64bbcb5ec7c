#include "editor/controls/page_table.h"

#include <algorithm>
#include <concepts>
#include <stdexcept>
#include <string>

#include "tuning/key_catalogue.h"
#include "tuning/key_choices.h"

namespace brindle {
namespace {

// A control is bound by its container, its full key and what the editor puts under an absent key.
struct Binding {
    const PageRow& row;
    CKVItemContainer* tuning;
    std::string key;
    bool inches;

    KeyDefault Default() const {
        const auto info = std::ranges::find(KeyCatalogue(), row.key, &KeyInfo::name);
        return info == KeyCatalogue().end() ? KeyDefault::None() : info->editor_default;
    }
    int32_t DefaultInt() const {
        return inches && row.inch_default ? static_cast<int32_t>(*row.inch_default) : Default().Int();
    }
    double DefaultReal() const { return inches && row.inch_default ? *row.inch_default : Default().Real(); }
};

bool Has(const PageRow& row, unsigned flag) { return (row.flags & flag) != 0; }

int32_t DecimalsOf(const Binding& to) {
    if (Has(to.row, kSixPlaces)) return 6;
    return Has(to.row, kUnitPlaces) ? LengthPlaces(to.inches) : -1;
}

void BindControl(CKVItemButton& button, const Binding& to) { button.Bind(to.tuning, to.key, to.Default().Bool()); }

void BindControl(CKVRealEdit& edit, const Binding& to) {
    edit.SetDecimals(DecimalsOf(to));
    edit.Bind(to.tuning, to.key, to.DefaultReal(),
              {.in_inches = to.inches && Has(to.row, kLength),
               .allow_negative = !Has(to.row, kNoNegative),
               .allow_zero = !Has(to.row, kNoZero)});
}

void BindControl(CKVUintEdit& edit, const Binding& to) {
    if (Has(to.row, kNoZero)) edit.RefuseZero();
    edit.Bind(to.tuning, to.key, to.DefaultInt());
}

void BindControl(CKVTextEdit& edit, const Binding& to) { edit.Bind(to.tuning, to.key, to.Default().Text()); }

void BindControl(CNDecCombo& combo, const Binding& to) { combo.Bind(to.tuning, to.key, to.DefaultInt()); }

// Its entries follow as rows of their own.
void BindControl(CKVItemCombo& combo, const Binding&) { combo.Reset(); }

void BindControl(CUnitsStatic& units, const Binding& to) { units.SetUnits(to.inches); }

// Everything else is bound to no key.
template <typename Other>
void BindControl(const Other&, const Binding&) {}

// Unbinds a control and takes what it shows from it.
template <typename Control>
void Blank(Control& control) {
    if constexpr (std::derived_from<Control, CBoundControl>) control.Unbind();
    if constexpr (requires { control.control().SetCheck(false); }) {
        control.control().SetCheck(false);
    } else if constexpr (requires { control.control().SetText({}); }) {
        control.control().SetText({});
    }
}

bool IsWithin(std::string_view group, std::string_view outer) {
    return group.starts_with(outer) && (group.size() == outer.size() || group[outer.size()] == '|');
}

bool IsBound(const PageRow& row) {
    switch (row.kind) {
        case ControlKind::kCheck:
        case ControlKind::kRadio:
        case ControlKind::kReal:
        case ControlKind::kInteger:
        case ControlKind::kText:
        case ControlKind::kDecimals: return true;
        default: return false;
    }
}

ControlSpec SpecOf(const PageRow& row) {
    ControlSpec spec = IsBound(row) ? KeySpec(row.kind, row.key, row.label) : PlainSpec(row.kind, row.label);
    spec.group = row.group;
    spec.spot = row.spot;
    spec.lead = row.lead;
    return spec;
}

std::span<const KeyRef> ChoiceAt(const PageRow& row) {
    const std::span<const KeyRef> choice = ChoiceOf(row.key);
    if (choice.empty()) throw std::out_of_range("no choice of " + std::string(row.key));
    return choice;
}

}  // namespace

// ---- Making ----

void CPageTable::Create(const ControlPlace& place) {
    for (const PageRow& row : rows_) Make(place, row);
}

void CPageTable::Make(const ControlPlace& place, const PageRow& row) {
    Made& made = made_.emplace_back(&row);
    if (Has(row, kEntry)) return;
    const ControlSpec spec = SpecOf(row);
    const auto bind = [&]<typename Control>(std::in_place_type_t<Control>) {
        made.control = &made.bound.emplace<Control>(place, spec).control();
    };
    const auto keep = [&](auto& control) {
        made.control = &control;
        made.bound = &control;
    };
    switch (row.kind) {
        case ControlKind::kCheck: return bind(std::in_place_type<CKVItemButton>);
        case ControlKind::kRadio:
            bind(std::in_place_type<CKVItemButton>);
            return std::get<CKVItemButton>(made.bound).SetChoice(ChoiceAt(row));
        case ControlKind::kReal: return bind(std::in_place_type<CKVRealEdit>);
        case ControlKind::kInteger: return bind(std::in_place_type<CKVUintEdit>);
        case ControlKind::kText: return bind(std::in_place_type<CKVTextEdit>);
        case ControlKind::kDecimals: return bind(std::in_place_type<CNDecCombo>);
        case ControlKind::kEntries: return bind(std::in_place_type<CKVItemCombo>);
        case ControlKind::kUnits: return bind(std::in_place_type<CUnitsStatic>);
        case ControlKind::kButton: return keep(place.form.AddButton(spec));
        case ControlKind::kDropDown:
        case ControlKind::kList: return keep(place.form.AddList(spec));
        case ControlKind::kTable: return keep(place.form.AddTable(spec));
        default: made.control = &place.form.AddLabel(spec);
    }
}

// ---- Binding ----

void CPageTable::Bind(CKVItemContainer* tuning, bool inches) {
    for (Made& made : made_) {
        if (!Has(*made.row, kPerTool)) BindRow(made, tuning, {}, inches);
    }
}

void CPageTable::BindPerTool(CKVItemContainer* tuning, std::string_view tool_prefix, bool inches) {
    for (Made& made : made_) {
        if (!Has(*made.row, kPerTool)) continue;
        if (tool_prefix.empty()) {
            std::visit([](auto& control) { Blank(control); }, made.bound);
        } else {
            BindRow(made, tuning, tool_prefix, inches);
        }
    }
}

void CPageTable::BindKeys(std::initializer_list<std::string_view> keys, CKVItemContainer* tuning,
                          std::string_view prefix, bool inches) {
    for (const std::string_view key : keys) {
        for (Made& made : made_) {
            if (made.row->key == key) BindRow(made, tuning, prefix, inches);
        }
    }
}

void CPageTable::Unbind(std::initializer_list<std::string_view> keys) {
    for (const std::string_view key : keys) {
        for (Made& made : made_) {
            if (made.row->key == key) std::visit([](auto& control) { Blank(control); }, made.bound);
        }
    }
}

void CPageTable::BindRow(Made& made, CKVItemContainer* tuning, std::string_view prefix, bool inches) {
    const Binding binding{*made.row, tuning, std::string(prefix).append(made.row->key), inches};
    if (Has(*made.row, kEntry)) {
        const auto list = std::find_if(made_.rbegin(), made_.rend(), [&made](const Made& other) {
            return other.row < made.row && std::holds_alternative<CKVItemCombo>(other.bound);
        });
        std::get<CKVItemCombo>(list->bound).AddEntry(tuning, binding.key, made.row->label, binding.Default().Bool());
        return;
    }
    std::visit([&binding](auto& control) { BindControl(control, binding); }, made.bound);
}

// ---- Looks ----

void CPageTable::ForEach(std::initializer_list<std::string_view> names, const std::function<void(CControl&)>& act) {
    for (const std::string_view name : names) {
        Of(name);  // so that a misspelt name is found
        for (Made& made : made_) {
            if (made.row->key == name && made.control != nullptr) act(*made.control);
        }
    }
}

void CPageTable::ForGroup(std::string_view group, const std::function<void(CControl&)>& act) {
    for (Made& made : made_) {
        if (IsWithin(made.row->group, group) && made.control != nullptr) act(*made.control);
    }
}

void CPageTable::Enable(std::initializer_list<std::string_view> names, bool enabled) {
    ForEach(names, [enabled](CControl& control) { control.Enable(enabled); });
}

void CPageTable::Show(std::initializer_list<std::string_view> names, bool shown) {
    ForEach(names, [shown](CControl& control) { control.Show(shown); });
}

void CPageTable::EnableGroup(std::string_view group, bool enabled) {
    ForGroup(group, [enabled](CControl& control) { control.Enable(enabled); });
}

void CPageTable::EnableOthers(std::string_view name, bool enabled) {
    for (Made& made : made_) {
        if (made.row->key != name && made.control != nullptr) made.control->Enable(enabled);
    }
}

void CPageTable::ShowGroup(std::string_view group, bool shown) {
    ForGroup(group, [shown](CControl& control) { control.Show(shown); });
}

CPageTable::Made& CPageTable::Of(std::string_view name) {
    const auto made = std::ranges::find(made_, name, [](const Made& each) { return each.row->key; });
    if (made == made_.end()) throw std::out_of_range("no control " + std::string(name));
    return *made;
}

}  // namespace brindle
