// The page "Templates": all templates of the whole program, and the preview.
#include "editor/pages/params_pages.h"

#include <algorithm>
#include <memory>

#include "editor/templates/template_list_ctrl.h"
#include "tuning/key_catalogue.h"

namespace brindle {
namespace {

// What the machine must be able to do for a template to be listed.
struct Abilities {
    bool subs;
    bool absolute_subs;
    bool moves;  // on blocks of their own
    bool text;
    bool fly_mode;
};

Abilities AbilitiesOf(const CBrindleOpts& tuning) {
    const auto is_true = [&tuning](std::string_view key) { return IsTrue(&tuning, key); };
    return {is_true("bUseSubs"), is_true("bSubsInAbs"), !is_true("bStartEndOnBlock"), is_true("bUseText"),
            is_true("Fly_bSupport")};
}

struct ListedEvent {
    std::string_view prefix;
    bool (*is_listed)(const Abilities& can);
};

constexpr auto kAlways = [](const Abilities&) { return true; };
constexpr auto kWithSubs = [](const Abilities& can) { return can.subs; };
constexpr auto kWithOrigins = [](const Abilities& can) { return can.absolute_subs && can.moves; };
constexpr auto kWithFlyMode = [](const Abilities& can) { return can.fly_mode; };

constexpr ListedEvent kListedEvents[] = {
    {"FileStart_", kAlways},
    {"FileEnd_", kAlways},
    {"MainInit_", kAlways},
    {"MainTerm_", kAlways},
    {"SubInit_", kWithSubs},
    {"SubTerm_", kWithSubs},
    {"Move_", [](const Abilities& can) { return can.moves; }},
    {"Line_", kAlways},
    {"Arc_", kAlways},
    {"Text_", [](const Abilities& can) { return can.text; }},
    {"MoveToIncludePt_", [](const Abilities& can) { return can.subs && can.moves; }},
    {"OriTransSet_", kWithOrigins},
    {"SubCall_", kWithSubs},
    {"OriTransReset_", kWithOrigins},
    {"SubReset_", kWithSubs},
    {"Fly_PreCheck_", kWithFlyMode},
    {"Fly_PostCheck_", kWithFlyMode},
};

std::string_view CaptionOf(std::string_view prefix) {
    const auto events = TemplateEvents();
    const auto event =
        std::find_if(events.begin(), events.end(), [prefix](const EventInfo& info) { return info.prefix == prefix; });
    return event == events.end() ? prefix : event->caption;
}

class CNCParamsTemplates : public CNCParamsPage {
public:
    explicit CNCParamsTemplates(const PageContext& context) : CNCParamsPage(context, "Templates", Mark::kAtChange) {}

protected:
    void CreateControls() override {
        CTableControl& table = Place().form.AddTable(PlainSpec(ControlKind::kTable));
        list_ = std::make_unique<CNCTemplateListCtrl>(Place().toolkit, table);
        list_->InitColumns(false);
        table.double_clicked.Set([this] { list_->EditAtPointer(GetOptions()); });
        CButtonControl& preview = Place().form.AddButton(PlainSpec(ControlKind::kButton, "Preview..."));
        preview.clicked.Set([this] { RunPreview(); });
    }

    void BindControls() override {
        const Abilities can = AbilitiesOf(*GetOptions());
        list_->ClearInfos();
        for (const ListedEvent& event : kListedEvents) {
            if (event.is_listed(can)) list_->AddInfo(CaptionOf(event.prefix), event.prefix);
        }
        list_->Fill(GetOptions(), true);
    }

private:
    std::unique_ptr<CNCTemplateListCtrl> list_;
};

}  // namespace

std::unique_ptr<CNCParamsPage> MakeTemplatesPage(const PageContext& context) {
    return std::make_unique<CNCParamsTemplates>(context);
}

}  // namespace brindle
