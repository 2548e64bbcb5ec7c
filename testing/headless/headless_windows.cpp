#include "testing/headless/headless_windows.h"

#include <algorithm>

namespace brindle {
namespace {

// A modal window is on the screen as long as this lives, whichever way its RunModal ends.
class CModalSpan {
public:
    CModalSpan(CHeadlessScreen& screen, CHeadlessWindow& window, const bool& with_ok)
        : screen_(screen), window_(window), with_ok_(with_ok) {
        screen_.Opened(window_);
    }
    CModalSpan(const CModalSpan&) = delete;
    CModalSpan& operator=(const CModalSpan&) = delete;
    ~CModalSpan() { screen_.Closed(window_, with_ok_); }

private:
    CHeadlessScreen& screen_;
    CHeadlessWindow& window_;
    const bool& with_ok_;
};

}  // namespace

// ---- Sheet ----

CPageForm& CHeadlessSheet::AddPage(std::string_view caption) {
    pages_.push_back(std::make_unique<CHeadlessPage>(screen_, caption));
    return *pages_.back();
}

bool CHeadlessSheet::RunModal() {
    ended_ = with_ok_ = false;
    const CModalSpan span(screen_, *this, with_ok_);
    if (!pages_.empty()) {
        front_ = pages_.front().get();
        front_->activated.Report();
    }
    while (!ended_ && screen_.user().NextAct()) continue;
    return with_ok_;
}

const HeadlessControls& CHeadlessSheet::Controls() const {
    static const HeadlessControls kNone;
    return front_ == nullptr ? kNone : front_->controls();
}

bool CHeadlessSheet::PressApply() {
    if (std::none_of(pages_.begin(), pages_.end(), [](const auto& page) { return page->modified(); })) return false;
    for (const auto& page : pages_) page->SetModified(false);
    return true;
}

bool CHeadlessSheet::GoToPage(std::string_view caption) {
    const auto page =
        std::find_if(pages_.begin(), pages_.end(), [caption](const auto& each) { return each->caption() == caption; });
    if (page == pages_.end()) return false;
    screen_.desk().MoveFocus(nullptr);
    if (page->get() == front_) return true;
    front_->left.Report();
    front_ = page->get();
    front_->activated.Report();
    return true;
}

bool CHeadlessSheet::End(bool with_ok) {
    ended_ = true;
    with_ok_ = with_ok;
    return true;
}

// ---- Dialog ----

bool CHeadlessDialog::RunModal() {
    ended_ = with_ok_ = false;
    const CModalSpan span(screen(), *this, with_ok_);
    while (!ended_ && screen().user().NextAct()) continue;
    return with_ok_;
}

bool CHeadlessDialog::PressOk() {
    ok_clicked.Report();
    return true;
}

bool CHeadlessDialog::PressCancel() {
    ended_ = true;
    return true;
}

// ---- Modeless window ----

void CHeadlessModeless::Open() {
    if (is_open_) return;
    is_open_ = true;
    screen().Opened(*this);
}

void CHeadlessModeless::Close() {
    if (!is_open_) return;
    is_open_ = false;
    screen().Closed(*this, false);
}

bool CHeadlessModeless::PressClose() {
    close_clicked.Report();
    return true;
}

}  // namespace brindle
