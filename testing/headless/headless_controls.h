// Controls without a screen: what they hold, and what a user can do to them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "testing/play/control_names.h"

namespace brindle {

class CHeadlessControl;

// What all headless windows share: one focus, one clipboard, one pointer.
struct HeadlessDesk {
    CHeadlessControl* focused = nullptr;
    std::string clipboard;

    // Takes the focus from the focused control, and gives it to `control`, which may be null.
    void MoveFocus(CHeadlessControl* control);
};

// The user's side of a control. Acts return false if the control has no such act; nothing has happened then.
class CHeadlessControl {
public:
    CHeadlessControl(ControlSpec spec, HeadlessDesk& desk);
    CHeadlessControl(const CHeadlessControl&) = delete;
    CHeadlessControl& operator=(const CHeadlessControl&) = delete;
    virtual ~CHeadlessControl();

    const ControlSpec& spec() const { return spec_; }
    bool enabled() const { return enabled_; }
    bool shown() const { return shown_; }
    NamedControl Named() const { return {spec_.kind, spec_.name, Label()}; }
    virtual std::string Label() const { return spec_.label; }
    // The check state, the text, or the selected index and its text.
    virtual std::string Value() const { return {}; }
    // Entries of a list; rows of a table, the cells of its visible columns separated by tabs.
    virtual std::vector<std::string> Rows() const { return {}; }

    virtual bool Click() { return false; }
    virtual bool Type(std::string_view /*text*/) { return false; }
    virtual bool Mark(TextRange /*range*/) { return false; }
    virtual bool WantMenu() { return false; }
    virtual bool Pick(int /*index*/) { return false; }
    virtual bool DoubleClick(TableCell /*visible cell*/) { return false; }
    virtual void LoseFocus() {}

protected:
    HeadlessDesk& desk() const { return desk_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    void SetShown(bool shown) { shown_ = shown; }

private:
    ControlSpec spec_;
    HeadlessDesk& desk_;
    bool enabled_ = true;
    bool shown_ = true;
};

using HeadlessControls = std::vector<std::unique_ptr<CHeadlessControl>>;

// What all kinds of control have in common; `Interface` is what the logic sees of the kind.
template <typename Interface>
class CHeadlessBase : public Interface, public CHeadlessControl {
public:
    CHeadlessBase(const ControlSpec& spec, HeadlessDesk& desk) : CHeadlessControl(spec, desk) {}
    void Enable(bool enabled) override { SetEnabled(enabled); }
    void Show(bool shown) override { SetShown(shown); }
    void SetText(std::string_view text) override { text_ = text; }
    std::string GetText() const override { return text_; }
    void TakeFocus() override { desk().MoveFocus(this); }

private:
    std::string text_;
};

class CHeadlessLabel : public CHeadlessBase<CControl> {
public:
    CHeadlessLabel(const ControlSpec& spec, HeadlessDesk& desk);
    std::string Value() const override { return GetText(); }
};

class CHeadlessButton : public CHeadlessBase<CButtonControl> {
public:
    // `siblings`: all controls of its form, which hold its group.
    CHeadlessButton(const ControlSpec& spec, HeadlessDesk& desk, const HeadlessControls& siblings);
    void SetCheck(bool checked) override { checked_ = checked; }
    bool GetCheck() const override { return checked_; }

    std::string Label() const override { return GetText(); }
    std::string Value() const override;
    bool Click() override;

private:
    void UnmarkGroup();

    const HeadlessControls& siblings_;
    bool checked_ = false;
};

// The text of an edit with its selection and the one step that can be undone.
class CEditText {
public:
    // One line gets blanks in place of control characters.
    explicit CEditText(bool one_line) : one_line_(one_line) {}

    void Set(std::string_view text);  // not to be undone
    void ReplaceAll(std::string_view text);
    void ReplaceSelection(std::string_view text);
    void Undo();
    void Select(TextRange range);
    std::string Selected() const { return text_.substr(selection_.begin, selection_.end - selection_.begin); }
    const std::string& text() const { return text_; }
    TextRange selection() const { return selection_; }

private:
    bool one_line_;
    std::string text_;
    TextRange selection_;
    std::optional<std::string> before_;
};

template <typename Interface>
class CHeadlessEditBase : public CHeadlessBase<Interface> {
public:
    using CHeadlessBase<Interface>::CHeadlessBase;
    void SetText(std::string_view text) override { edit_.Set(text); }
    std::string GetText() const override { return edit_.text(); }
    void Undo() override {
        edit_.Undo();
        this->changed.Report();
    }
    void Cut() override {
        Copy();
        edit_.ReplaceSelection({});
        this->changed.Report();
    }
    void Copy() override {
        if (const std::string text = edit_.Selected(); !text.empty()) this->desk().clipboard = text;
    }
    void Paste() override {
        edit_.ReplaceSelection(this->desk().clipboard);
        this->changed.Report();
    }
    void SelectAll() override { edit_.Select({0, edit_.text().size()}); }

    std::string Value() const override { return edit_.text(); }
    bool Type(std::string_view text) override {
        edit_.ReplaceAll(text);
        this->changed.Report();
        return true;
    }
    bool Mark(TextRange range) override {
        edit_.Select(range);
        return true;
    }
    bool WantMenu() override {
        this->menu_wanted.Report();
        return true;
    }
    void LoseFocus() override { this->focus_lost.Report(); }

protected:
    CEditText edit_{this->spec().kind != ControlKind::kMulti};
};

using CHeadlessEdit = CHeadlessEditBase<CEditControl>;

class CHeadlessMultiEdit : public CHeadlessEditBase<CMultiEditControl> {
public:
    using CHeadlessEditBase::CHeadlessEditBase;
    TextRange GetSelection() const override { return edit_.selection(); }
    void SetSelection(TextRange range) override { edit_.Select(range); }
    void ScrollCaretIntoView() override {}
};

class CHeadlessList : public CHeadlessBase<CListControl> {
public:
    using CHeadlessBase::CHeadlessBase;
    void Empty() override;
    int AddEntry(std::string_view text) override;
    void SetValue(int index, int32_t value) override;
    int32_t GetValue(int index) const override;
    int GetCount() const override { return static_cast<int>(entries_.size()); }
    std::string GetEntryText(int index) const override;
    void SetEntries(int count, std::function<std::string(int)> text_of) override;
    void Select(int index) override;
    int GetSelected() const override { return selected_; }

    std::string Value() const override;
    std::vector<std::string> Rows() const override;
    bool Pick(int index) override;
    bool DoubleClick(TableCell cell) override;

private:
    struct Entry {
        std::string text;
        int32_t value = 0;
    };
    bool Has(int index) const { return index >= 0 && index < GetCount(); }

    std::vector<Entry> entries_;
    int selected_ = -1;
};

class CHeadlessTable : public CHeadlessBase<CTableControl> {
public:
    using CHeadlessBase::CHeadlessBase;
    void AddColumn(std::string_view heading, int width) override;
    void RemoveColumns() override;
    int AddRow() override;
    void SetCell(TableCell cell, std::string_view text) override;
    void SetRowValue(int row, int32_t value) override;
    int32_t GetRowValue(int row) const override;
    void DeleteRows() override { rows_.clear(); }
    std::optional<TableCell> CellUnderPointer() const override { return pointer_; }

    std::vector<std::string> Rows() const override;
    // Outside all rows and columns the pointer is over no cell.
    bool DoubleClick(TableCell cell) override;

private:
    struct Column {
        std::string heading;
        int width;
    };
    struct Row {
        std::vector<std::string> cells;
        int32_t value = 0;
    };
    bool HasRow(int row) const { return row >= 0 && static_cast<size_t>(row) < rows_.size(); }
    // The column of that place among the visible ones, -1 if there is none.
    int ColumnOfVisible(int place) const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;
    std::optional<TableCell> pointer_;
};

// What is drawn is for the eye alone: a form does not list it among its controls.
class CHeadlessDrawing : public CHeadlessBase<CDrawingControl> {
public:
    using CHeadlessBase::CHeadlessBase;
    void SetScene(std::shared_ptr<const PathScene> scene) override { scene_ = std::move(scene); }
    void Highlight(int element) override { highlighted_ = element; }
    int GetPicked() const override { return picked_; }

    const PathScene* scene() const { return scene_.get(); }
    int highlighted() const { return highlighted_; }
    bool Pick(int element) override {
        picked_ = element;
        picked.Report();
        return true;
    }

private:
    std::shared_ptr<const PathScene> scene_;
    int highlighted_ = -1;
    int picked_ = -1;
};

}  // namespace brindle
