// The windows of the headless toolkit.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "editor/toolkit/headless_toolkit.h"

namespace brindle {

// The controls of a form; `Interface` is the form that the logic sees.
template <typename Interface>
class CHeadlessForm : public Interface {
public:
    explicit CHeadlessForm(CHeadlessToolkit& toolkit) : toolkit_(toolkit) {}

    CControl& AddLabel(const ControlSpec& spec) override { return Add<CHeadlessLabel>(spec); }
    CButtonControl& AddButton(const ControlSpec& spec) override { return Add<CHeadlessButton>(spec, controls_); }
    CEditControl& AddEdit(const ControlSpec& spec) override { return Add<CHeadlessEdit>(spec); }
    CMultiEditControl& AddMultiEdit(const ControlSpec& spec) override { return Add<CHeadlessMultiEdit>(spec); }
    CListControl& AddList(const ControlSpec& spec) override { return Add<CHeadlessList>(spec); }
    CTableControl& AddTable(const ControlSpec& spec) override { return Add<CHeadlessTable>(spec); }
    CDrawingControl& AddDrawing(const ControlSpec& spec) override {
        drawing_ = std::make_unique<CHeadlessDrawing>(spec, toolkit_.desk());
        return *drawing_;
    }

    const HeadlessControls& controls() const { return controls_; }
    CHeadlessDrawing* drawing() const { return drawing_.get(); }

protected:
    CHeadlessToolkit& toolkit() { return toolkit_; }

private:
    template <typename Control, typename... More>
    Control& Add(const ControlSpec& spec, More&... more) {
        auto control = std::make_unique<Control>(spec, toolkit_.desk(), more...);
        Control& added = *control;
        controls_.push_back(std::move(control));
        return added;
    }

    CHeadlessToolkit& toolkit_;
    HeadlessControls controls_;
    std::unique_ptr<CHeadlessDrawing> drawing_;
};

class CHeadlessPage : public CHeadlessForm<CPageForm> {
public:
    CHeadlessPage(CHeadlessToolkit& toolkit, std::string_view caption) : CHeadlessForm(toolkit), caption_(caption) {}
    void SetModified(bool modified) override { modified_ = modified; }
    bool modified() const { return modified_; }
    const std::string& caption() const { return caption_; }

private:
    std::string caption_;
    bool modified_ = false;
};

class CHeadlessSheet : public CSheetWindow, public CHeadlessWindow {
public:
    CHeadlessSheet(CHeadlessToolkit& toolkit, std::string_view title) : toolkit_(toolkit), title_(title) {}

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

    CHeadlessToolkit& toolkit_;
    std::string title_;
    std::vector<std::unique_ptr<CHeadlessPage>> pages_;
    CHeadlessPage* front_ = nullptr;
    bool ended_ = false;
    bool with_ok_ = false;
};

class CHeadlessDialog : public CHeadlessForm<CDialogWindow>, public CHeadlessWindow {
public:
    CHeadlessDialog(CHeadlessToolkit& toolkit, std::string_view caption) : CHeadlessForm(toolkit), caption_(caption) {}

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
    CHeadlessModeless(CHeadlessToolkit& toolkit, std::string_view caption)
        : CHeadlessForm(toolkit), caption_(caption) {}
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
