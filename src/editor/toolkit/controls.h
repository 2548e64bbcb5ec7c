// The controls of a window, as the editor's logic sees them. A toolkit derives a class from each; forms create them and
// own them (toolkit/windows.h).
//
// Operations act without a report: events report what the user does, nothing else. All text is UTF-8. Indexes count
// from 0, and -1 is no index; an index that names nothing changes nothing and gives 0 or empty text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "editor/toolkit/event.h"

namespace brindle {

// What a control is for. Kinds with the same operations differ in looks alone.
enum class ControlKind : uint8_t {
    kCheck,
    kRadio,
    kButton,    // push button
    kReal,      // one-line edit of a number
    kInteger,   // one-line edit of a whole number
    kText,      // one-line edit
    kMulti,     // edit of several lines
    kDecimals,  // drop-down list of decimals
    kEntries,   // drop-down list whose entries are keys
    kDropDown,  // any other drop-down list
    kList,      // list box
    kTable,
    kLabel,
    kUnits,  // label with a unit
    kDrawing,
};

// Where a control goes, for a toolkit that lays forms out.
enum class Spot : uint8_t {
    kNewRow,     // below the control before it
    kBeside,     // in the row of the control before it, such as a unit after its field
    kNewColumn,  // below the one before it; its group is to the right of the group before
};

// How a control is described to the toolkit that makes it.
struct ControlSpec {
    ControlKind kind;
    std::string name;   // the key that it is bound to, without tool prefix; empty if none
    std::string label;  // on a button; next to any other control, shown, hidden, enabled and disabled with it
    // Headings of the controls that belong together, from the outermost inwards, with a bar between: `Axis 1|Format for
    // mm`. A heading is shown and enabled while one of its controls is. Radio buttons of a group exclude each other.
    std::string group{};
    std::string tip{};  // tool tip
    Spot spot = Spot::kNewRow;
    std::string lead{};  // drawn in front of the control and no label, such as the operators of a formula
};

// A control that is bound to no key.
inline ControlSpec PlainSpec(ControlKind kind, std::string_view label = {}, Spot spot = Spot::kNewRow) {
    return {.kind = kind, .name = {}, .label = std::string(label), .spot = spot};
}

class CControl {
public:
    CControl() = default;
    CControl(const CControl&) = delete;
    CControl& operator=(const CControl&) = delete;
    virtual ~CControl() = default;

    virtual void Enable(bool enabled) = 0;
    virtual void Show(bool shown) = 0;
    // The contents of an edit, the text of a label, the caption of a button.
    virtual void SetText(std::string_view text) = 0;
    virtual std::string GetText() const = 0;
    virtual void TakeFocus() = 0;
};

// Check box, radio button or push button.
class CButtonControl : public CControl {
public:
    virtual void SetCheck(bool checked) = 0;  // of this button alone, whatever its group
    virtual bool GetCheck() const = 0;
    // A click. The check state has changed by then: a check box has turned, and a radio button is marked and the others
    // of its group are not.
    CEvent clicked;
};

// An edit of one line takes no control characters: a tuning could not hold them. Blanks come in their place.
class CEditControl : public CControl {
public:
    // As if the user had asked for them: a change is reported.
    virtual void Undo() = 0;
    virtual void Cut() = 0;
    virtual void Copy() = 0;
    virtual void Paste() = 0;
    virtual void SelectAll() = 0;

    CEvent changed;
    CEvent focus_lost;
    CEvent menu_wanted;  // the user asks for the context menu
};

// A run of text, counted in bytes of what GetText gives. `begin` equals `end` where nothing is selected.
struct TextRange {
    size_t begin = 0;
    size_t end = 0;
};

// Its lines are joined with CR LF.
class CMultiEditControl : public CEditControl {
public:
    virtual TextRange GetSelection() const = 0;
    virtual void SetSelection(TextRange range) = 0;
    virtual void ScrollCaretIntoView() = 0;
};

// Drop-down list or list box, with one selected entry or none.
class CListControl : public CControl {
public:
    virtual void Empty() = 0;
    // At the end, with the value 0. Gives its index.
    virtual int AddEntry(std::string_view text) = 0;
    virtual void SetValue(int index, int32_t value) = 0;
    virtual int32_t GetValue(int index) const = 0;
    virtual int GetCount() const = 0;
    virtual std::string GetEntryText(int index) const = 0;
    // Puts `count` entries in place of all others. A toolkit asks for the text of an entry when it comes into view;
    // `text_of` must answer until the list is filled anew or emptied.
    virtual void SetEntries(int count, std::function<std::string(int)> text_of) = 0;
    virtual void Select(int index) = 0;  // -1 for none; scrolls the entry into view
    virtual int GetSelected() const = 0;

    CEvent selected;  // the user has chosen an entry, be it the same as before
    CEvent double_clicked;
};

struct TableCell {
    int row = 0;
    int column = 0;
};

class CTableControl : public CControl {
public:
    // At the right, `width` pixels wide; a width of 0 hides the column.
    virtual void AddColumn(std::string_view heading, int width) = 0;
    virtual void RemoveColumns() = 0;
    // At the end, empty, with the value 0. Gives its index.
    virtual int AddRow() = 0;
    virtual void SetCell(TableCell cell, std::string_view text) = 0;
    virtual void SetRowValue(int row, int32_t value) = 0;
    virtual int32_t GetRowValue(int row) const = 0;
    virtual void DeleteRows() = 0;
    virtual std::optional<TableCell> CellUnderPointer() const = 0;

    CEvent double_clicked;
};

struct PathScene;

// Draws a tool path, which the user can zoom and move.
class CDrawingControl : public CControl {
public:
    // Null for an empty drawing. Shows all of it.
    virtual void SetScene(std::shared_ptr<const PathScene> scene) = 0;
    // Marks an element of the scene and brings it into view; -1 for none.
    virtual void Highlight(int element) = 0;
    // The element that the user has chosen last.
    virtual int GetPicked() const = 0;

    CEvent picked;  // the user has chosen an element
};

}  // namespace brindle
