// A user before the headless toolkit, whose acts are a list of functions.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "testing/headless/headless_toolkit.h"

namespace brindle {

// Does one act of its list after the other, and notes what comes up. Message boxes are answered by `answers`, then with
// no; menus by `menu_choice`; file dialogs by `file`.
class CListUser : public CToolkitUser {
public:
    bool NextAct() override {
        if (acts.empty()) return false;
        const auto act = acts.front();
        acts.pop_front();
        act();
        return true;
    }
    void WindowOpened(const std::string& caption) override { screen.push_back("open " + caption); }
    void WindowClosed(const std::string& caption, bool with_ok) override {
        screen.push_back((with_ok ? "ok " : "cancel ") + caption);
    }
    bool AnswerMessage(std::string_view text, bool /*is_question*/) override {
        messages.emplace_back(text);
        return false;
    }
    int AnswerMenu(std::span<const MenuEntry> entries) override {
        menu.clear();
        int chosen = -1;
        for (const MenuEntry& entry : entries) {
            if (entry.text == menu_choice && entry.enabled) chosen = static_cast<int>(menu.size());
            menu.push_back(entry.enabled ? std::string(entry.text) : '(' + std::string(entry.text) + ')');
        }
        return chosen;
    }
    std::optional<std::string> AnswerFile(const FileQuestion& question) override {
        file_question = std::string(question.extension) + ' ' + std::string(question.filter);
        return file;
    }

    std::deque<std::function<void()>> acts;
    std::vector<std::string> screen;    // windows that opened and closed
    std::vector<std::string> messages;  // message boxes
    std::vector<std::string> menu;      // the last menu; disabled entries in brackets
    std::string menu_choice;
    std::optional<std::string> file;
    std::string file_question;
};

}  // namespace brindle
