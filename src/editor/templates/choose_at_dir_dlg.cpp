#include "editor/templates/choose_at_dir_dlg.h"

#include "editor/messages.h"
#include "language/directives.h"

namespace brindle {
namespace {

// The entry between two groups. The user can select it, but not choose it.
constexpr std::string_view kSeparator = " ";

}  // namespace

CChooseAtDirDlg::CChooseAtDirDlg(CToolkit& toolkit, std::string_view directive)
    : toolkit_(toolkit),
      directive_(directive),
      window_(toolkit.MakeDialog("Choose @Directive")),
      list_(window_->AddList(PlainSpec(ControlKind::kList))) {
    FillList();
    window_->ok_clicked.Set([this] { OnOk(); });
}

void CChooseAtDirDlg::FillList() {
    int last_number = DirectiveTable().front().number - 1;
    for (const DirectiveInfo& info : DirectiveTable()) {
        if (info.number != last_number + 1) list_.AddEntry(kSeparator);
        last_number = info.number;
        const int index = list_.AddEntry(info.name);
        if (info.name == directive_) list_.Select(index);
    }
    if (list_.GetSelected() < 0) list_.Select(0);
}

void CChooseAtDirDlg::OnOk() {
    std::string chosen = list_.GetEntryText(list_.GetSelected());
    if (chosen.size() <= 1) {
        toolkit_.ShowMessage(messages::kChooseDirective);
        return;
    }
    directive_ = std::move(chosen);
    window_->EndWithOk();
}

}  // namespace brindle
