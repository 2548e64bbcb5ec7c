#include "editor/toolkit/headless_toolkit.h"

#include <algorithm>

#include "editor/toolkit/headless_windows.h"

namespace brindle {
namespace {

// Null for a control that can be acted upon.
const char* WhyNotUsable(const CHeadlessControl& control) {
    if (!control.shown()) return " is hidden";
    return control.enabled() ? nullptr : " is disabled";
}

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

}  // namespace

// ---- Windows ----

std::unique_ptr<CSheetWindow> CHeadlessToolkit::MakeSheet(std::string_view title) {
    return std::make_unique<CHeadlessSheet>(*this, title);
}

std::unique_ptr<CDialogWindow> CHeadlessToolkit::MakeDialog(std::string_view caption) {
    return std::make_unique<CHeadlessDialog>(*this, caption);
}

std::unique_ptr<CModelessWindow> CHeadlessToolkit::MakeModeless(std::string_view caption, CSheetWindow& /*beside*/) {
    return std::make_unique<CHeadlessModeless>(*this, caption);
}

void CHeadlessToolkit::Opened(CHeadlessWindow& window) {
    desk_.MoveFocus(nullptr);
    windows_.push_back(&window);
    if (window.IsModal()) modal_.push_back(&window);
    user_.WindowOpened(window.Caption());
}

void CHeadlessToolkit::Closed(CHeadlessWindow& window, bool with_ok) {
    desk_.MoveFocus(nullptr);
    std::erase(windows_, &window);
    std::erase(modal_, &window);
    user_.WindowClosed(window.Caption(), with_ok);
}

bool CHeadlessToolkit::IsKeptBack(const CHeadlessWindow& window) const {
    return window.IsModal() && modal_.back() != &window;
}

// ---- The user's acts ----

CHeadlessControl* CHeadlessToolkit::Find(std::string_view name) const {
    if (Top() == nullptr) return nullptr;
    const HeadlessControls& controls = Top()->Controls();
    std::vector<NamedControl> names;
    for (const auto& control : controls) names.push_back(control->Named());
    const auto found = FindControl(names, name);
    return found ? controls[*found].get() : nullptr;
}

std::string CHeadlessToolkit::Do(std::string_view control, const char* what, const Act& act) {
    CHeadlessControl* const found = Find(control);
    if (found == nullptr) return "there is no control " + Quoted(control) + " in the window";
    if (const char* const why = WhyNotUsable(*found)) return Quoted(control) + why;
    desk_.MoveFocus(found);
    if (const char* const why = WhyNotUsable(*found)) return Quoted(control) + why;  // now that another lost the focus
    return act(*found) ? std::string() : Quoted(control) + what;
}

std::string CHeadlessToolkit::Click(std::string_view control) {
    return Do(control, " is no button", [](CHeadlessControl& found) { return found.Click(); });
}

std::string CHeadlessToolkit::Type(std::string_view control, std::string_view text) {
    return Do(control, " takes no text", [text](CHeadlessControl& found) { return found.Type(text); });
}

std::string CHeadlessToolkit::Mark(std::string_view control, TextRange range) {
    return Do(control, " has no text to select", [range](CHeadlessControl& found) { return found.Mark(range); });
}

std::string CHeadlessToolkit::WantMenu(std::string_view control) {
    return Do(control, " has no context menu", [](CHeadlessControl& found) { return found.WantMenu(); });
}

std::string CHeadlessToolkit::Pick(std::string_view control, int index) {
    return Do(control, " has no such entry", [index](CHeadlessControl& found) { return found.Pick(index); });
}

std::string CHeadlessToolkit::PickEntry(std::string_view control, std::string_view entry) {
    return Do(control, " has no such entry", [entry](CHeadlessControl& found) {
        const std::vector<std::string> entries = found.Rows();
        const auto place = std::find(entries.begin(), entries.end(), entry);
        return place != entries.end() && found.Pick(static_cast<int>(place - entries.begin()));
    });
}

std::string CHeadlessToolkit::DoubleClick(std::string_view control, TableCell cell) {
    return Do(control, " has nothing there to double-click",
              [cell](CHeadlessControl& found) { return found.DoubleClick(cell); });
}

std::string CHeadlessToolkit::Leave() {
    desk_.MoveFocus(nullptr);
    return {};
}

std::string CHeadlessToolkit::GoToPage(std::string_view caption) {
    if (Top() != nullptr && Top()->GoToPage(caption)) return {};
    return "there is no page " + Quoted(caption) + " in the window";
}

std::string CHeadlessToolkit::Press(bool (CHeadlessWindow::*press)(), const char* button) {
    if (Top() == nullptr) return "no window is open";
    desk_.MoveFocus(nullptr);
    if ((Top()->*press)()) return {};
    return "the window has no " + std::string(button) + ", or it is disabled";
}

std::string CHeadlessToolkit::GoToWindow(std::string_view caption) {
    const auto window = std::find_if(windows_.rbegin(), windows_.rend(),
                                     [caption](const CHeadlessWindow* each) { return each->Caption() == caption; });
    if (window == windows_.rend()) return "there is no window " + Quoted(caption);
    CHeadlessWindow* const found = *window;
    if (IsKeptBack(*found)) return Quoted(caption) + " waits for another window";
    desk_.MoveFocus(nullptr);
    std::erase(windows_, found);
    windows_.push_back(found);
    return {};
}

}  // namespace brindle
