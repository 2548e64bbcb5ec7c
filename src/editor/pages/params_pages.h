// The pages of the tuning editor, in the order of their tabs. The file of a page says what it is for.
#pragma once

#include <memory>

#include "editor/pages/params_page.h"

namespace brindle {

std::unique_ptr<CNCParamsPage> MakeGeneralPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeSubsPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeCodesPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeAxisDataPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeArcsPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeSpeedPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeToolsPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeToolRotationPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeTextPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeTemplatesPage(const PageContext& context);
std::unique_ptr<CNCParamsPage> MakeRunTimeDataPage(const PageContext& context);

}  // namespace brindle
