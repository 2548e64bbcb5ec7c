// Who uses a toolkit in a test: a list of acts, or a session played from text.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "editor/toolkit/windows.h"

namespace brindle {

// Asked for the user's acts, and hears what comes and goes on the screen.
class CToolkitUser {
public:
    CToolkitUser() = default;
    CToolkitUser(const CToolkitUser&) = delete;
    CToolkitUser& operator=(const CToolkitUser&) = delete;
    virtual ~CToolkitUser() = default;

    // Does the next thing to the toolkit. False if there is none: then the window that waits ends as cancelled.
    virtual bool NextAct() = 0;

    virtual void WindowOpened(const std::string& /*caption*/) {}
    virtual void WindowClosed(const std::string& /*caption*/, bool /*with_ok*/) {}

    // True for OK and Yes.
    virtual bool AnswerMessage(std::string_view text, bool is_question) = 0;
    // The index of an enabled entry, -1 for none.
    virtual int AnswerMenu(std::span<const MenuEntry> entries) = 0;
    virtual std::optional<std::string> AnswerFile(const FileQuestion& question) = 0;
};

}  // namespace brindle
