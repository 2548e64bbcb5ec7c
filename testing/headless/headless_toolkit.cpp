#include "testing/headless/headless_toolkit.h"

#include <algorithm>

#include "testing/headless/headless_windows.h"
#include "testing/play/act_line.h"

namespace brindle {
namespace {

// Null for a control that can be acted upon.
const char* WhyNotUsable(const CHeadlessControl& control) {
    if (!control.shown()) return " is hidden";
    return control.enabled() ? nullptr : " is disabled";
}

}  // namespace

// ---- Windows ----

std::unique_ptr<CSheetWindow> CHeadlessToolkit::MakeSheet(std::string_view title) {
    return std::make_unique<CHeadlessSheet>(screen_, title);
}

std::unique_ptr<CDialogWindow> CHeadlessToolkit::MakeDialog(std::string_view caption) {
    return std::make_unique<CHeadlessDialog>(screen_, caption);
}

std::unique_ptr<CModelessWindow> CHeadlessToolkit::MakeModeless(std::string_view caption, CSheetWindow& /*beside*/) {
    return std::make_unique<CHeadlessModeless>(screen_, caption);
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

std::vector<play::ShownControl> CHeadlessToolkit::Controls() const {
    std::vector<play::ShownControl> shown;
    for (const auto& control : Top()->Controls()) {
        shown.push_back({control->Named(), control->enabled(), control->shown(), control->Value(), control->Rows()});
    }
    return shown;
}

std::string CHeadlessToolkit::Do(std::string_view control, const char* what, const Act& act) {
    CHeadlessControl* const found = Find(control);
    if (found == nullptr) return "there is no control " + play::DoubleQuoted(control) + " in the window";
    if (const char* const why = WhyNotUsable(*found)) return play::DoubleQuoted(control) + why;
    screen_.desk().MoveFocus(found);
    if (const char* const why = WhyNotUsable(*found))
        return play::DoubleQuoted(control) + why;  // now that another lost the focus
    return act(*found) ? std::string() : play::DoubleQuoted(control) + what;
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
    screen_.desk().MoveFocus(nullptr);
    return {};
}

std::string CHeadlessToolkit::GoToPage(std::string_view caption) {
    if (Top() != nullptr && Top()->GoToPage(caption)) return {};
    return "there is no page " + play::DoubleQuoted(caption) + " in the window";
}

std::string CHeadlessToolkit::Press(bool (CHeadlessWindow::*press)(), const char* button) {
    if (Top() == nullptr) return "no window is open";
    screen_.desk().MoveFocus(nullptr);
    if ((Top()->*press)()) return {};
    return "the window has no " + std::string(button) + ", or it is disabled";
}

std::string CHeadlessToolkit::GoToWindow(std::string_view caption) {
    CHeadlessWindow* const window = screen_.Find(caption);
    if (window == nullptr) return "there is no window " + play::DoubleQuoted(caption);
    if (screen_.IsKeptBack(*window)) return play::DoubleQuoted(caption) + " waits for another window";
    screen_.MoveToTop(*window);
    return {};
}

}  // namespace brindle
