// The windows of the headless toolkit.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editor/toolkit/windows.h"
#include "testing/headless/headless_screen.h"

namespace brindle {

// The controls of a form; `Interface` is the form that the logic sees.
template <typename Interface>
class CHeadlessForm : public Interface {
public:
    explicit CHeadlessForm(CHeadlessScreen& screen) : screen_(screen) {}

    CControl& AddLabel(const ControlSpec& spec) override { return Add<CHeadlessLabel>(spec); }
    CButtonControl& AddButton(const ControlSpec& spec) override { return Add<CHeadlessButton>(spec, controls_); }
    CEditControl& AddEdit(const ControlSpec& spec) override { return Add<CHeadlessEdit>(spec); }
    CMultiEditControl& AddMultiEdit(const ControlSpec& spec) override { return Add<CHeadlessMultiEdit>(spec); }
    CListControl& AddList(const ControlSpec& spec) override { return Add<CHeadlessList>(spec); }
    CTableControl& AddTable(const ControlSpec& spec) override { return Add<CHeadlessTable>(spec); }
    CDrawingControl& AddDrawing(const ControlSpec& spec) override {
        drawing_ = std::make_unique<CHeadlessDrawing>(spec, screen_.desk());
        return *drawing_;
    }

    const HeadlessControls& controls() const { return controls_; }
    CHeadlessDrawing* drawing() const { return drawing_.get(); }

protected:
    CHeadlessScreen& screen() { return screen_; }

private:
    template <typename Control, typename... More>
    Control& Add(const ControlSpec& spec, More&... more) {
        auto control = std::make_unique<Control>(spec, screen_.desk(), more...);
        Control& added = *control;
        controls_.push_back(std::move(control));
        return added;
    }

    CHeadlessScreen& screen_;
    HeadlessControls controls_;
    std::unique_ptr<CHeadlessDrawing> drawing_;
};

class CHeadlessPage : public CHeadlessForm<CPageForm> {
public:
    CHeadlessPage(CHeadlessScreen& screen, std::string_view caption) : CHeadlessForm(screen), caption_(caption) {}
    void SetModified(bool modified) override { modified_ = modified; }
    bool modified() const { return modified_; }
    const std::string& caption() const { return caption_; }

private:
    std::string caption_;
    bool modified_ = false;
};

class CHeadlessSheet : public CSheetWindow, public CHeadlessWindow {
public:
    CHeadlessSheet(CHeadlessScreen& screen, std::string_view title) : screen_(screen), title_(title) {}

    CPageForm& AddPage(std::string_view caption) override;
    bool RunModal() override;

    const std::string& Caption() const override { return title_; }
    bool IsModal() const override { return true; }
    const HeadlessControls& Controls() const override;
    bool PressOk() override { return End(true); }
    bool PressCancel() override { return End(false); }
    bool PressApply() override;
    bool GoToPage(std::string_view caption) override;

private:
    bool End(bool with_ok);

    CHeadlessScreen& screen_;
    std::string title_;
    std::vector<std::unique_ptr<CHeadlessPage>> pages_;
    CHeadlessPage* front_ = nullptr;
    bool ended_ = false;
    bool with_ok_ = false;
};

class CHeadlessDialog : public CHeadlessForm<CDialogWindow>, public CHeadlessWindow {
public:
    CHeadlessDialog(CHeadlessScreen& screen, std::string_view caption) : CHeadlessForm(screen), caption_(caption) {}

    bool RunModal() override;
    void EndWithOk() override { ended_ = with_ok_ = true; }

    const std::string& Caption() const override { return caption_; }
    bool IsModal() const override { return true; }
    const HeadlessControls& Controls() const override { return controls(); }
    bool PressOk() override;
    bool PressCancel() override;

private:
    std::string caption_;
    bool ended_ = false;
    bool with_ok_ = false;
};

class CHeadlessModeless : public CHeadlessForm<CModelessWindow>, public CHeadlessWindow {
public:
    CHeadlessModeless(CHeadlessScreen& screen, std::string_view caption) : CHeadlessForm(screen), caption_(caption) {}
    ~CHeadlessModeless() override { CHeadlessModeless::Close(); }

    void Open() override;
    void Close() override;

    const std::string& Caption() const override { return caption_; }
    bool IsModal() const override { return false; }
    const HeadlessControls& Controls() const override { return controls(); }
    bool PressClose() override;

private:
    std::string caption_;
    bool is_open_ = false;
};

}  // namespace brindle
