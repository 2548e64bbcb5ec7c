// The controls of a page as a table: one row a control, from which the page makes, binds, enables and shows them.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "editor/controls/kv_combos.h"
#include "editor/controls/kv_item_button.h"
#include "editor/controls/kv_number_edits.h"
#include "editor/controls/kv_text_edit.h"
#include "editor/controls/units_static.h"

namespace brindle {

// What more is to be said of a row.
enum PageRowFlag : unsigned {
    kPerTool = 1,     // the key follows the prefix of the selected tool
    kLength = 2,      // stored in millimetres, shown in the sheet's unit
    kUnitPlaces = 4,  // shown with the decimals of lengths
    kSixPlaces = 8,   // shown with six decimals
    kNoNegative = 16,
    kNoZero = 32,
    kEntry = 64,  // an entry of the drop-down list before it
};

// The key catalogue has the defaults.
struct PageRow {
    ControlKind kind;
    // The key that the control is bound to, without tool prefix. Another control has a name here by which its page
    // finds it; labels and units have that of the field that they belong to.
    std::string_view key;
    std::string_view group;  // as in ControlSpec
    std::string_view label;
    unsigned flags = 0;
    Spot spot = Spot::kNewRow;
    std::string_view lead{};
    std::optional<double> inch_default{};  // in a sheet that shows inches
};

// The rows of all `parts` in order, for tables that pages share in part.
template <size_t... kCounts>
constexpr auto JoinRows(const std::array<PageRow, kCounts>&... parts) {
    std::array<PageRow, (kCounts + ...)> rows{};
    size_t count = 0;
    const auto append = [&](const auto& part) {
        for (const PageRow& row : part) rows[count++] = row;
    };
    (append(parts), ...);
    return rows;
}

// A drop-down list whose entries are keys is a row of the kind kEntries with a name that is no key, and a row
// with the flag kEntry for each entry after it. What a radio button excludes is in tuning/key_choices.h; its key must
// be of a choice there, and the group is that of the others.
//
// Controls are found by key or name; of two with the same, Find gives the first, and all are bound, enabled or shown
// together. A name that no row has is a fault of the page: std::out_of_range.
class CPageTable {
public:
    // `rows` must outlive the table.
    explicit CPageTable(std::span<const PageRow> rows) : rows_(rows) {}
    CPageTable(const CPageTable&) = delete;
    CPageTable& operator=(const CPageTable&) = delete;

    // Once, before anything else.
    void Create(const ControlPlace& place);
    // Binds all rows that are not per tool.
    void Bind(CKVItemContainer* tuning, bool inches);
    // Binds the rows that are per tool. An empty prefix, for no tool, unbinds them, so that nothing goes under the
    // keys of a tool that is gone.
    void BindPerTool(CKVItemContainer* tuning, std::string_view tool_prefix, bool inches);
    // Binds the rows of these keys after `prefix`, which may be empty.
    void BindKeys(std::initializer_list<std::string_view> keys, CKVItemContainer* tuning, std::string_view prefix,
                  bool inches);
    // Blanks these rows; they commit nothing until the next binding.
    void Unbind(std::initializer_list<std::string_view> keys);

    void Enable(std::initializer_list<std::string_view> names, bool enabled);
    void Show(std::initializer_list<std::string_view> names, bool shown);
    // All rows of the group and of the groups within it.
    void EnableGroup(std::string_view group, bool enabled);
    // All rows but that one.
    void EnableOthers(std::string_view name, bool enabled);
    void ShowGroup(std::string_view group, bool shown);

    bool IsChecked(std::string_view name) { return Find<CKVItemButton>(name).control().GetCheck(); }
    void SetCheck(std::string_view name, bool checked) { Find<CKVItemButton>(name).control().SetCheck(checked); }
    // A bound control by its class.
    template <typename Control>
    Control& Find(std::string_view name) {
        return std::get<Control>(Of(name).bound);
    }
    CControl& Control(std::string_view name) { return *Of(name).control; }
    CButtonControl& Button(std::string_view name) { return *std::get<CButtonControl*>(Of(name).bound); }
    CListControl& List(std::string_view name) { return *std::get<CListControl*>(Of(name).bound); }
    CTableControl& Table(std::string_view name) { return *std::get<CTableControl*>(Of(name).bound); }

private:
    struct Made {
        explicit Made(const PageRow* made_of) : row(made_of) {}

        const PageRow* row;
        CControl* control = nullptr;
        std::variant<std::monostate, CKVItemButton, CKVRealEdit, CKVUintEdit, CKVTextEdit, CNDecCombo, CKVItemCombo,
                     CUnitsStatic, CButtonControl*, CListControl*, CTableControl*>
            bound{};
    };

    void Make(const ControlPlace& place, const PageRow& row);
    void BindRow(Made& made, CKVItemContainer* tuning, std::string_view prefix, bool inches);
    void ForEach(std::initializer_list<std::string_view> names, const std::function<void(CControl&)>& act);
    void ForGroup(std::string_view group, const std::function<void(CControl&)>& act);
    Made& Of(std::string_view name);

    std::span<const PageRow> rows_;
    std::deque<Made> made_;
};

}  // namespace brindle
