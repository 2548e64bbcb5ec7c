// The windows on which a session is played.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editor/toolkit/windows.h"
#include "testing/play/control_names.h"

namespace brindle::play {

// A control as the user has it before him.
struct ShownControl : NamedControl {
    bool enabled;
    bool shown;
    std::string value;              // check state, text, or selected index and its text
    std::vector<std::string> rows;  // entries of a list; rows of a table, the cells of its visible columns between tabs
};

// What a user can do, to the window on top: the one that was opened or chosen last. Each act gives empty text, or why
// a user could not do that. A control must be enabled and shown to be acted upon, and it takes the focus first.
class CPlayScreen {
public:
    CPlayScreen() = default;
    CPlayScreen(const CPlayScreen&) = delete;
    CPlayScreen& operator=(const CPlayScreen&) = delete;
    virtual ~CPlayScreen() = default;

    virtual CToolkit& toolkit() = 0;
    virtual bool HasWindow() const = 0;
    // All controls of the window on top; of a sheet, those of the page in front.
    virtual std::vector<ShownControl> Controls() const = 0;

    virtual std::string Click(std::string_view control) = 0;
    virtual std::string Type(std::string_view control, std::string_view text) = 0;
    virtual std::string Mark(std::string_view control, TextRange range) = 0;
    virtual std::string WantMenu(std::string_view control) = 0;
    virtual std::string Pick(std::string_view control, int index) = 0;
    virtual std::string PickEntry(std::string_view control, std::string_view entry) = 0;
    virtual std::string DoubleClick(std::string_view control, TableCell cell) = 0;
    virtual std::string Leave() = 0;
    virtual std::string GoToPage(std::string_view caption) = 0;
    virtual std::string GoToWindow(std::string_view caption) = 0;
    virtual std::string PressOk() = 0;
    virtual std::string PressCancel() = 0;
    virtual std::string PressApply() = 0;
    virtual std::string PressClose() = 0;
};

}  // namespace brindle::play
