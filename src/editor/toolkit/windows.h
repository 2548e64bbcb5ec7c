// The windows of the editor, and the toolkit that makes them. The logic of the editor knows no more of a windowing
// system than this and toolkit/controls.h; a toolkit implements both.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "editor/toolkit/controls.h"

namespace brindle {

// A page or dialog. It makes its controls, in the order in which the user meets them, and owns them.
class CForm {
public:
    CForm() = default;
    CForm(const CForm&) = delete;
    CForm& operator=(const CForm&) = delete;
    virtual ~CForm() = default;

    virtual CControl& AddLabel(const ControlSpec& spec) = 0;
    virtual CButtonControl& AddButton(const ControlSpec& spec) = 0;
    virtual CEditControl& AddEdit(const ControlSpec& spec) = 0;
    virtual CMultiEditControl& AddMultiEdit(const ControlSpec& spec) = 0;
    virtual CListControl& AddList(const ControlSpec& spec) = 0;
    virtual CTableControl& AddTable(const ControlSpec& spec) = 0;
    virtual CDrawingControl& AddDrawing(const ControlSpec& spec) = 0;
};

// A page of a sheet.
class CPageForm : public CForm {
public:
    // Apply is on while a page has the mark. Apply takes it from all pages.
    virtual void SetModified(bool modified) = 0;

    CEvent activated;  // each time the page comes to the front, the opening of the sheet included
    CEvent left;       // another page is about to take its place; the focus has been taken from its controls
};

// A modal sheet of pages with OK, Cancel and Apply. A click on any of them takes the focus first.
class CSheetWindow {
public:
    CSheetWindow() = default;
    CSheetWindow(const CSheetWindow&) = delete;
    CSheetWindow& operator=(const CSheetWindow&) = delete;
    virtual ~CSheetWindow() = default;

    virtual CPageForm& AddPage(std::string_view caption) = 0;
    // Shows the first page and returns when the user has left: whether with OK.
    virtual bool RunModal() = 0;
};

// A modal dialog with OK and Cancel.
class CDialogWindow : public CForm {
public:
    // Returns when the dialog has ended: whether with OK. Cancel, and closing it by its frame, end it at once.
    virtual bool RunModal() = 0;
    // Lets RunModal return true.
    virtual void EndWithOk() = 0;

    CEvent ok_clicked;  // the dialog stays open unless the listener ends it
};

// A window that stays open next to a modal sheet, with a button Close.
class CModelessWindow : public CForm {
public:
    virtual void Open() = 0;
    // Takes it off the screen. It may be destroyed only after the report that led here.
    virtual void Close() = 0;

    CEvent close_clicked;  // Close, or the frame; the window stays open unless the listener closes it
};

// An entry of a context menu.
struct MenuEntry {
    std::string_view text;  // empty for a separator
    bool enabled = true;
};

// A file dialog.
struct FileQuestion {
    bool save;                   // asks before an existing file is overwritten
    std::string_view extension;  // added to a name without one, such as ".txt"
    std::string_view filter;     // pairs of caption and pattern, a bar after each, two at the end
};

class CToolkit {
public:
    CToolkit() = default;
    CToolkit(const CToolkit&) = delete;
    CToolkit& operator=(const CToolkit&) = delete;
    virtual ~CToolkit() = default;

    virtual std::unique_ptr<CSheetWindow> MakeSheet(std::string_view title) = 0;
    virtual std::unique_ptr<CDialogWindow> MakeDialog(std::string_view caption) = 0;
    // A window that opens with its left edge at the right edge of `beside` and its top at the top of it.
    virtual std::unique_ptr<CModelessWindow> MakeModeless(std::string_view caption, CSheetWindow& beside) = 0;

    // Message boxes. They return when the user has answered.
    virtual void ShowMessage(std::string_view text) = 0;
    virtual bool AskYesNo(std::string_view text) = 0;
    // The index of the chosen entry, -1 if none was chosen.
    virtual int ChooseFromMenu(std::span<const MenuEntry> entries) = 0;
    // The path, nothing if the user cancelled.
    virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;
};

}  // namespace brindle
