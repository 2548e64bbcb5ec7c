// A session of the editor played from text: acts come in, one a line, and what the user would see goes out.
//
//   sheet mm|inch [TITLE]           opens the tuning editor
//   rtdata PATH DATASET PICK        opens the dialog of run-time data
//   segment                         opens the dialog that chooses a segment
//   page CAPTION                    goes to that page
//   show [CONTROL]                  prints the controls of the window on top, or one of them
//   click CONTROL                   of a check box, radio button or push button
//   type CONTROL TEXT               replaces the whole text; the focus stays there
//   leave                           takes the focus away
//   pick CONTROL INDEX|ENTRY        of a list; an entry of digits needs quotes
//   double CONTROL ROW COLUMN       double click in a table or list
//   mark CONTROL FROM TO            selects characters
//   menu CONTROL, entry TEXT        opens the context menu, and chooses; any other act closes it
//   answer ok|yes|no                answers a message box
//   file [PATH]                     answers a file dialog, or cancels it
//   ok, cancel, apply, close        buttons of the window on top
//   window CAPTION                  brings that window to the top
//   tuning, nc                      prints the tuning, and what is left in the current output buffer
//
// A control is called by its key without tool prefix, else by its label, else by its class word; NAME#2 is the second
// of that name. Indexes, rows, columns and characters count from 0, columns and rows as they are seen.
//
// `show` prints a line a control: class word, name, label, state and value, separated by tabs, and below it the entries
// or rows.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "testing/play/act_line.h"
#include "testing/play/play_screen.h"
#include "testing/play/toolkit_user.h"

namespace brindle::play {

// Plays the library through its exports. A window that is open at the end of the acts ends as cancelled.
class CPlaySession : public CToolkitUser {
public:
    CPlaySession(std::istream& acts, std::ostream& output, std::ostream& errors)
        : acts_(acts), output_(output), errors_(errors) {}

    // Plays all acts on `screen`, whose toolkit is the active one meanwhile. False, with a message, if one could not be
    // done; those after it are left out.
    bool Run(CPlayScreen& screen);

    bool NextAct() override;
    void WindowOpened(const std::string& caption) override;
    void WindowClosed(const std::string& caption, bool with_ok) override;
    bool AnswerMessage(std::string_view text, bool is_question) override;
    int AnswerMenu(std::span<const MenuEntry> entries) override;
    std::optional<std::string> AnswerFile(const FileQuestion& question) override;

private:
    using Words = std::vector<Word>;
    struct Act;
    static const Act kActs[];

    // The next line that is not empty; nothing at the end and after a failed act.
    std::optional<Words> NextLine();
    void Execute(const Words& words);
    // Keeps `problem`, if there is one, as the reason why the session fails.
    void Check(const std::string& problem);
    void Print(const std::string& line);

    void OpenSheet(const Words& words);
    void OpenRunTimeData(const Words& words);
    void OpenSegment(const Words& words);
    void Show(const Words& words);
    void ShowControl(const ShownControl& control);
    std::optional<ShownControl> Find(std::string_view name) const;
    void Pick(const Words& words);
    void Double(const Words& words);
    void Mark(const Words& words);
    void PrintTuning(const Words& words);
    void PrintCode(const Words& words);

    std::istream& acts_;
    std::ostream& output_;
    std::ostream& errors_;
    CPlayScreen* screen_ = nullptr;  // while Run lasts
    std::optional<Words> put_back_;  // a line that was read too early
    int line_number_ = 0;
    bool failed_ = false;
};

}  // namespace brindle::play
