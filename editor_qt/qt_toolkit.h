// The editor's toolkit on Qt Widgets.
#pragma once

#include "desk.h"
#include "editor/toolkit/windows.h"

namespace brindle {

// Needs the process's QApplication while it is used.
class CQtToolkit : public CToolkit {
public:
    std::unique_ptr<CSheetWindow> MakeSheet(std::string_view title) override;
    std::unique_ptr<CDialogWindow> MakeDialog(std::string_view caption) override;
    std::unique_ptr<CModelessWindow> MakeModeless(std::string_view caption, CSheetWindow& beside) override;
    void ShowMessage(std::string_view text) override;
    bool AskYesNo(std::string_view text) override;
    int ChooseFromMenu(std::span<const MenuEntry> entries) override;
    std::optional<std::string> ChooseFile(const FileQuestion& question) override;

private:
    CDesk desk_;
    QString folder_;  // of the file that was chosen last
};

}  // namespace brindle
