// The sheet of pages.
#pragma once

#include <QPushButton>
#include <QTabWidget>
#include <memory>
#include <vector>

#include "form.h"
#include "window.h"

namespace brindle {

class CQtSheet;

class CQtPage : public CQtForm<CPageForm> {
public:
    // `content` is what scrolls if the page is too high for the screen.
    CQtPage(CDesk& desk, CQtSheet& sheet, QWidget& content);
    void SetModified(bool modified) override;
    bool modified() const { return modified_; }
    // Reports it and puts new controls in their places, after `before` in the order of tabs.
    void Activate(QWidget& before);

private:
    CQtSheet& sheet_;
    bool modified_ = false;
};

class CQtSheet : public CSheetWindow {
public:
    CQtSheet(CDesk& desk, std::string_view title);
    ~CQtSheet() override;
    CPageForm& AddPage(std::string_view caption) override;
    bool RunModal() override;

    CWindow& window() { return *window_; }
    // Apply is on while a page has the mark.
    void UpdateApply();

private:
    void LeaveFront();
    void Arrive(int page);
    void Apply();

    CDesk& desk_;
    std::unique_ptr<CWindow> window_;
    QTabWidget* tabs_;
    QPushButton* apply_;
    std::vector<std::unique_ptr<CQtPage>> pages_;
    int front_ = -1;  // the page that is active, -1 before the first
};

}  // namespace brindle
