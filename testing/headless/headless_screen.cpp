#include "testing/headless/headless_screen.h"

#include <algorithm>

namespace brindle {

CHeadlessWindow* CHeadlessScreen::Find(std::string_view caption) const {
    const auto window = std::find_if(windows_.rbegin(), windows_.rend(),
                                     [caption](const CHeadlessWindow* each) { return each->Caption() == caption; });
    return window == windows_.rend() ? nullptr : *window;
}

void CHeadlessScreen::Opened(CHeadlessWindow& window) {
    desk_.MoveFocus(nullptr);
    windows_.push_back(&window);
    if (window.IsModal()) modal_.push_back(&window);
    user_.WindowOpened(window.Caption());
}

void CHeadlessScreen::Closed(CHeadlessWindow& window, bool with_ok) {
    desk_.MoveFocus(nullptr);
    std::erase(windows_, &window);
    std::erase(modal_, &window);
    user_.WindowClosed(window.Caption(), with_ok);
}

void CHeadlessScreen::MoveToTop(CHeadlessWindow& window) {
    desk_.MoveFocus(nullptr);
    std::erase(windows_, &window);
    windows_.push_back(&window);
}

}  // namespace brindle
