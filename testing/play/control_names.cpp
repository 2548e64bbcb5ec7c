#include "testing/play/control_names.h"

#include "text/numbers.h"

namespace brindle {
namespace {

std::string WithoutAccelerator(std::string_view label) {
    std::string plain(label);
    std::erase(plain, '&');
    return plain;
}

using Naming = bool (*)(const NamedControl& control, std::string_view name);
constexpr Naming kNamings[] = {
    [](const NamedControl& control, std::string_view name) { return control.Name() == name; },
    [](const NamedControl& control, std::string_view name) { return control.label == name; },
    [](const NamedControl& control, std::string_view name) {
        return WithoutAccelerator(control.label) == WithoutAccelerator(name);
    },
    [](const NamedControl& control, std::string_view name) { return ClassWord(control.kind) == name; },
};

std::optional<size_t> FindNth(std::span<const NamedControl> controls, std::string_view name, int32_t n) {
    for (const Naming is_called : kNamings) {
        int32_t count = 0;
        for (size_t i = 0; i < controls.size(); ++i) {
            if (is_called(controls[i], name) && ++count == n) return i;
        }
    }
    return std::nullopt;
}

}  // namespace

std::string_view ClassWord(ControlKind kind) {
    switch (kind) {
        case ControlKind::kCheck: return "check";
        case ControlKind::kRadio: return "radio";
        case ControlKind::kButton: return "button";
        case ControlKind::kReal: return "real";
        case ControlKind::kInteger: return "integer";
        case ControlKind::kText: return "text";
        case ControlKind::kMulti: return "multi";
        case ControlKind::kDecimals: return "decimals";
        case ControlKind::kEntries: return "entries";
        case ControlKind::kDropDown:
        case ControlKind::kList: return "list";
        case ControlKind::kTable: return "table";
        case ControlKind::kLabel: return "label";
        case ControlKind::kUnits: return "units";
        case ControlKind::kDrawing: return "drawing";
    }
    return {};
}

std::string NamedControl::Name() const {
    if (!key.empty()) return key;
    return label.empty() ? std::string(ClassWord(kind)) : label;
}

std::optional<size_t> FindControl(std::span<const NamedControl> controls, std::string_view name) {
    if (const auto found = FindNth(controls, name, 1)) return found;
    const size_t mark = name.rfind('#');
    if (mark == std::string_view::npos) return std::nullopt;
    return FindNth(controls, name.substr(0, mark), LeadingInt(name.substr(mark + 1)));
}

}  // namespace brindle
