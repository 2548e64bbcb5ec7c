// A user of the editor whose acts are bytes: what to do, to which of the controls that are on the screen, and with
// what. An act that can't be done is passed over, so that this comes further than a transcript.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "editor/toolkit/active_toolkit.h"
#include "editor_job.h"
#include "files.h"
#include "testing/headless/headless_toolkit.h"

namespace {

constexpr size_t kLongest = 600;  // more acts are slow, not new

constexpr const char* kPages[] = {"General", "Subs",    "Codes", "AxisData",  "ArcData",    "Speed",
                                  "Tools",   "ToolRot", "Text",  "Templates", "RunTimeData"};

class CByteUser : public brindle::CToolkitUser {
public:
    CByteUser(const uint8_t* data, size_t size) : next_(data), end_(data + size) {}

    size_t Byte(size_t below) { return next_ == end_ ? 0 : *next_++ % below; }
    int Small() { return static_cast<int>(Byte(20)); }
    std::string Text() {
        const size_t length = std::min(Byte(40), static_cast<size_t>(end_ - next_));
        next_ += length;
        std::string text(reinterpret_cast<const char*>(next_ - length), length);
        std::replace(text.begin(), text.end(), '/', '_');  // no file dialog leaves the folder
        return text;
    }

    bool NextAct() override {
        if (next_ != end_) Act(Byte(40));
        return next_ != end_;
    }
    bool AnswerMessage(std::string_view, bool) override { return Byte(2) == 0; }
    int AnswerMenu(std::span<const brindle::MenuEntry> entries) override {
        const size_t entry = Byte(entries.size() + 1);
        return entry < entries.size() && entries[entry].enabled ? static_cast<int>(entry) : -1;
    }
    std::optional<std::string> AnswerFile(const brindle::FileQuestion&) override {
        return Byte(2) == 0 ? std::optional(Text()) : std::nullopt;
    }

    brindle::CHeadlessToolkit screen{*this};

private:
    // The name of one of the controls: `NAME#2` for the second of that name.
    std::string Control() {
        const auto controls = screen.Controls();
        if (controls.empty()) return "none";
        const size_t chosen = Byte(controls.size());
        const std::string name = controls[chosen].Name();
        const auto before = std::count_if(controls.begin(), controls.begin() + static_cast<ptrdiff_t>(chosen),
                                          [&](const auto& control) { return control.Name() == name; });
        return before == 0 ? name : name + "#" + std::to_string(before + 1);
    }

    void Act(size_t act) {
        if (act == 0) screen.PressOk();
        if (act == 1) screen.PressCancel();
        if (act == 2) screen.PressApply();
        if (act == 3) screen.PressClose();
        if (act == 4) screen.Leave();
        if (act == 5) screen.GoToWindow("Brindle Parameter Editor");
        if (act >= 6 && act < 10) screen.GoToPage(kPages[Byte(std::size(kPages))]);
        if (act >= 10 && act < 16) screen.Click(Control());
        if (act >= 16 && act < 22) screen.Type(Control(), Text());
        if (act >= 22 && act < 28) screen.Pick(Control(), Small());
        if (act >= 28 && act < 32) screen.WantMenu(Control());
        if (act >= 32 && act < 36) screen.Mark(Control(), {Byte(20), Byte(20)});
        if (act >= 36) screen.DoubleClick(Control(), {Small(), Small()});
    }

    const uint8_t* next_;
    const uint8_t* end_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const CWorkFolder folder;
    if (size > kLongest) return 0;
    ::setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    folder.Empty();
    LoadEditorJob();
    CByteUser user(data, size);
    brindle::SetActiveToolkit(&user.screen);
    const size_t dialog = user.Byte(8);
    if (dialog == 0) GBrn_DisplayRTDataDlg(nullptr, L"Steel", L"Pick", nullptr);
    GBrn_End();
    if (dialog == 1) GBrn_DisplayLoadSegmentDialog();
    if (dialog > 1) GBrn_DisplayTuningDialog(dialog % 2 == 0, nullptr, nullptr);
    brindle::SetActiveToolkit(nullptr);
    GBrn_Clear();
    return 0;
}
