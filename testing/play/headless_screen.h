// A session played without a screen.
#pragma once

#include "editor/toolkit/headless_toolkit.h"
#include "testing/play/play_screen.h"

namespace brindle::play {

class CHeadlessScreen : public CPlayScreen {
public:
    explicit CHeadlessScreen(CToolkitUser& user) : toolkit_(user) {}

    CToolkit& toolkit() override { return toolkit_; }
    bool HasWindow() const override { return toolkit_.Top() != nullptr; }
    std::vector<ShownControl> Controls() const override {
        std::vector<ShownControl> shown;
        for (const auto& control : toolkit_.Top()->Controls()) {
            shown.push_back(
                {control->Named(), control->enabled(), control->shown(), control->Value(), control->Rows()});
        }
        return shown;
    }

    std::string Click(std::string_view control) override { return toolkit_.Click(control); }
    std::string Type(std::string_view control, std::string_view text) override { return toolkit_.Type(control, text); }
    std::string Mark(std::string_view control, TextRange range) override { return toolkit_.Mark(control, range); }
    std::string WantMenu(std::string_view control) override { return toolkit_.WantMenu(control); }
    std::string Pick(std::string_view control, int index) override { return toolkit_.Pick(control, index); }
    std::string PickEntry(std::string_view control, std::string_view entry) override {
        return toolkit_.PickEntry(control, entry);
    }
    std::string DoubleClick(std::string_view control, TableCell cell) override {
        return toolkit_.DoubleClick(control, cell);
    }
    std::string Leave() override { return toolkit_.Leave(); }
    std::string GoToPage(std::string_view caption) override { return toolkit_.GoToPage(caption); }
    std::string GoToWindow(std::string_view caption) override { return toolkit_.GoToWindow(caption); }
    std::string PressOk() override { return toolkit_.PressOk(); }
    std::string PressCancel() override { return toolkit_.PressCancel(); }
    std::string PressApply() override { return toolkit_.PressApply(); }
    std::string PressClose() override { return toolkit_.PressClose(); }

private:
    CHeadlessToolkit toolkit_;
};

}  // namespace brindle::play
