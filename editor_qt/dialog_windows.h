// Dialogs and modeless windows.
#pragma once

#include "form.h"
#include "window.h"

namespace brindle {

class CQtDialog : private CWindowHolder, public CQtForm<CDialogWindow> {
public:
    CQtDialog(CDesk& desk, std::string_view caption);
    bool RunModal() override;
    void EndWithOk() override { window().End(true); }

private:
    void SelectFirstField();

    bool has_buttons_ = false;
};

// Belongs to the sheet next to it.
class CQtModeless : private CWindowHolder, public CQtForm<CModelessWindow> {
public:
    CQtModeless(CDesk& desk, std::string_view caption, CWindow& beside);
    ~CQtModeless() override;
    void Open() override;
    void Close() override;

private:
    QPoint PlaceBeside() const;

    CWindow& beside_;
    bool is_laid_out_ = false;
};

}  // namespace brindle
