// What all windows of the headless toolkit share: the windows that are open, the user before them, and his focus.
#pragma once

#include "testing/headless/headless_controls.h"
#include "testing/play/toolkit_user.h"

namespace brindle {

// A window as the user has it before him.
class CHeadlessWindow {
public:
    CHeadlessWindow() = default;
    CHeadlessWindow(const CHeadlessWindow&) = delete;
    CHeadlessWindow& operator=(const CHeadlessWindow&) = delete;
    virtual ~CHeadlessWindow() = default;

    virtual const std::string& Caption() const = 0;
    virtual bool IsModal() const = 0;
    // The controls in view: of a sheet, those of the page in front.
    virtual const HeadlessControls& Controls() const = 0;
    // False if the window has no such button, or if it is disabled.
    virtual bool PressOk() { return false; }
    virtual bool PressCancel() { return false; }
    virtual bool PressApply() { return false; }
    virtual bool PressClose() { return PressCancel(); }
    // False if the window has no such page.
    virtual bool GoToPage(std::string_view /*caption*/) { return false; }
};

class CHeadlessScreen {
public:
    // `user` must outlive the screen.
    explicit CHeadlessScreen(CToolkitUser& user) : user_(user) {}

    CToolkitUser& user() { return user_; }
    HeadlessDesk& desk() { return desk_; }
    // The window on top, null if none is open.
    CHeadlessWindow* Top() const { return windows_.empty() ? nullptr : windows_.back(); }
    // The topmost window with that caption, null if there is none.
    CHeadlessWindow* Find(std::string_view caption) const;
    // Whether a modal window that was opened later keeps it back.
    bool IsKeptBack(const CHeadlessWindow& window) const { return window.IsModal() && modal_.back() != &window; }

    void Opened(CHeadlessWindow& window);
    void Closed(CHeadlessWindow& window, bool with_ok);
    void MoveToTop(CHeadlessWindow& window);

private:
    CToolkitUser& user_;
    HeadlessDesk desk_;
    std::vector<CHeadlessWindow*> windows_;  // the top one last
    std::vector<CHeadlessWindow*> modal_;    // in order of opening
};

}  // namespace brindle
