// The tuning editor: a modal sheet of pages over the live tuning of a session.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "editor/output/code_preview.h"
#include "editor/pages/params_page.h"

namespace brindle {

// Lives for one call of the editor, and owns its pages and the preview window. OK, Cancel and Apply do nothing to the
// tuning: its controls have written their keys by then.
class CNCParamsSheet {
public:
    // `session` may be null; then there is nothing to edit. `inches`: lengths are shown in inches, else in millimetres;
    // fixed for the life of the sheet, and nothing to do with the output units of the tuning. An empty title gives the
    // standard one.
    CNCParamsSheet(CToolkit& toolkit, CSession* session, bool inches, std::string_view title);
    CNCParamsSheet(const CNCParamsSheet&) = delete;
    CNCParamsSheet& operator=(const CNCParamsSheet&) = delete;

    // Adds all pages of the editor, in the order of their tabs.
    void AddPages();
    // Adds one page after the others.
    using PageMaker = std::function<std::unique_ptr<CNCParamsPage>(const PageContext& context)>;
    CNCParamsPage& AddPage(const PageMaker& make);
    // True if the user left with OK.
    bool RunModal() { return window_->RunModal(); }

    // The preview window, opened if there is none. It closes with the sheet.
    CNCCodePreview& GetPreview();

private:
    CToolkit& toolkit_;
    CSession* session_;
    bool inches_;
    std::unique_ptr<CSheetWindow> window_;
    std::vector<std::unique_ptr<CNCParamsPage>> pages_;
    std::unique_ptr<CNCCodePreview> preview_;
    std::unique_ptr<CNCCodePreview> closed_preview_;  // it may still be on its way out of the call that closed it
};

}  // namespace brindle
