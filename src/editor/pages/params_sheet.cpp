#include "editor/pages/params_sheet.h"

#include "editor/pages/params_pages.h"

namespace brindle {
namespace {

constexpr std::string_view kStandardTitle = "Brindle Parameter Editor";

}  // namespace

CNCParamsSheet::CNCParamsSheet(CToolkit& toolkit, CSession* session, bool inches, std::string_view title)
    : toolkit_(toolkit),
      session_(session),
      inches_(inches),
      window_(toolkit.MakeSheet(title.empty() ? kStandardTitle : title)) {}

void CNCParamsSheet::AddPages() {
    for (const auto make :
         {MakeGeneralPage, MakeSubsPage, MakeCodesPage, MakeAxisDataPage, MakeArcsPage, MakeSpeedPage, MakeToolsPage,
          MakeToolRotationPage, MakeTextPage, MakeTemplatesPage, MakeRunTimeDataPage}) {
        AddPage(make);
    }
}

CNCParamsPage& CNCParamsSheet::AddPage(const PageMaker& make) {
    const PageContext context{toolkit_, *window_, session_, inches_,
                              [this]() -> CNCCodePreview& { return GetPreview(); }};
    return *pages_.emplace_back(make(context));
}

CNCCodePreview& CNCParamsSheet::GetPreview() {
    if (preview_ == nullptr) {
        const auto closed = [this] { closed_preview_ = std::move(preview_); };
        preview_ = std::make_unique<CNCCodePreview>(toolkit_, *window_, closed);
    }
    return *preview_;
}

}  // namespace brindle
