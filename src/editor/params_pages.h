// The pages of the tuning editor, in the order of their tabs. A page without controls shows its tab alone.
#pragma once

#include "editor/params_page.h"
#include "editor/params_templates.h"

namespace brindle {

class CNCParamsGeneral : public CNCParamsPage {
public:
    explicit CNCParamsGeneral(const PageContext& context) : CNCParamsPage(context, "General", Mark::kAtActivation) {}
};

class CNCParamsSubs : public CNCParamsPage {
public:
    explicit CNCParamsSubs(const PageContext& context) : CNCParamsPage(context, "Subs", Mark::kAtActivation) {}
};

class CNCParamsUnitCodes : public CNCParamsPage {
public:
    explicit CNCParamsUnitCodes(const PageContext& context) : CNCParamsPage(context, "Codes", Mark::kAtActivation) {}
};

class CNCParamsData : public CNCParamsPage {
public:
    explicit CNCParamsData(const PageContext& context) : CNCParamsPage(context, "AxisData", Mark::kAtActivation) {}
};

class CNCParamsArcs : public CNCParamsPage {
public:
    explicit CNCParamsArcs(const PageContext& context) : CNCParamsPage(context, "ArcData", Mark::kAtActivation) {}
};

class CNCParamsSpeed : public CNCParamsPage {
public:
    explicit CNCParamsSpeed(const PageContext& context) : CNCParamsPage(context, "Speed", Mark::kAtChange) {}
};

class CNCParamsToolData : public CNCParamsPage {
public:
    explicit CNCParamsToolData(const PageContext& context) : CNCParamsPage(context, "Tools", Mark::kAtActivation) {}
};

class CNCParamsToolRot : public CNCParamsPage {
public:
    explicit CNCParamsToolRot(const PageContext& context) : CNCParamsPage(context, "ToolRot", Mark::kAtChange) {}
};

class CNCParamsText : public CNCParamsPage {
public:
    explicit CNCParamsText(const PageContext& context) : CNCParamsPage(context, "Text", Mark::kAtChange) {}
};

class CNCParamsRTD : public CNCParamsPage {
public:
    explicit CNCParamsRTD(const PageContext& context) : CNCParamsPage(context, "RunTimeData", Mark::kAtChange) {}
};

}  // namespace brindle
