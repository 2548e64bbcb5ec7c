#include "editor/templates/choose_at_dir_dlg.h"

#include "editor/messages.h"
#include "language/directives.h"

namespace brindle {
namespace {

// The entry between two groups. The user can select it, but not choose it.
constexpr std::string_view kSeparator = " ";

void FillList(CListControl& list, std::string_view selected) {
    int last_number = DirectiveTable().front().number - 1;
    for (const DirectiveInfo& info : DirectiveTable()) {
        if (info.number != last_number + 1) list.AddEntry(kSeparator);
        last_number = info.number;
        const int index = list.AddEntry(info.name);
        if (info.name == selected) list.Select(index);
    }
    if (list.GetSelected() < 0) list.Select(0);
}

}  // namespace

std::optional<std::string> ChooseDirective(CToolkit& toolkit, std::string_view directive) {
    const auto window = toolkit.MakeDialog("Choose @Directive");
    CListControl& list = window->AddList(PlainSpec(ControlKind::kList));
    FillList(list, directive);
    const auto chosen = [&list] { return list.GetEntryText(list.GetSelected()); };
    window->ok_clicked.Set([&] {
        if (chosen().size() <= 1) return toolkit.ShowMessage(messages::kChooseDirective);
        window->EndWithOk();
    });
    return window->RunModal() ? std::optional(chosen()) : std::nullopt;
}

}  // namespace brindle
