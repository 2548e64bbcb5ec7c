#include "editor/templates/edit_template_dlg.h"

#include <deque>
#include <memory>
#include <string>

#include "editor/controls/kv_item_button.h"
#include "editor/templates/kv_item_multi.h"
#include "tuning/options.h"

namespace brindle {
namespace {

struct Flag {
    std::string_view key;  // after the prefix of the template
    std::string_view label;
    bool per_tool;
};

constexpr Flag kFlags[] = {
    {"bTerminiate", "Terminate with end block delimeter", false},
    {"bClearInterp", "Clear @InterpCode modal information", true},
    {"bClearAbsInc", "Clear @AbsIncCode modal information", true},
    {"bClearSpeed", "Clear @SpeedWords modal information", true},
};

class CEditTemplateDlg {
public:
    CEditTemplateDlg(CToolkit& toolkit, CKVItemContainer* container, std::string_view prefix, std::string_view name,
                     bool per_tool)
        : container_(container), prefix_(prefix), window_(toolkit.MakeDialog("Edit Template Dialog")) {
        const ControlPlace place{toolkit, *window_};
        place.form.AddLabel(PlainSpec(ControlKind::kLabel)).SetText(name);
        text_ = std::make_unique<CKVItemMulti>(place);
        text_->SetTuning(dynamic_cast<const CBrindleOpts*>(container));
        ShowLines();
        AddFlags(place, per_tool);
        AddInsertButtons(place);
        text_->control().TakeFocus();
        window_->ok_clicked.Set([this] { OnOk(); });
    }
    bool RunModal() { return window_->RunModal(); }

private:
    void AddFlags(const ControlPlace& place, bool per_tool) {
        for (const Flag& flag : kFlags) {
            const std::string key = prefix_ + std::string(flag.key);
            const bool is_used = per_tool || !flag.per_tool;
            const ControlSpec spec = is_used ? KeySpec(ControlKind::kCheck, WithoutToolPrefix(key), flag.label)
                                             : PlainSpec(ControlKind::kCheck, flag.label);
            CKVItemButton& button = flags_.emplace_back(place, spec);
            button.control().Show(is_used);
            if (is_used) button.Bind(container_, key, true);
        }
    }

    void AddInsertButtons(const ControlPlace& place) {
        place.form.AddButton(PlainSpec(ControlKind::kButton, "Insert RunTimeData...")).clicked.Set([this] {
            text_->InsertRunTimeData();
        });
        place.form.AddButton(PlainSpec(ControlKind::kButton, "Insert @Directive...")).clicked.Set([this] {
            text_->InsertDirective();
        });
    }

    void ShowLines() {
        TemplateLines lines;
        if (container_ != nullptr) container_->GetMulti(prefix_ + "tTmpl", lines);
        std::string text;
        for (const CTemplateLine& line : lines) {
            if (&line != &lines.front()) text += "\r\n";
            text += line.text;
        }
        text_->control().SetText(text);
    }

    void OnOk() {
        if (container_ == nullptr) return;
        container_->SetMulti(prefix_ + "tTmpl", LinesOfText(text_->control().GetText()));
        window_->EndWithOk();
    }

    CKVItemContainer* container_;
    std::string prefix_;
    std::unique_ptr<CDialogWindow> window_;
    std::unique_ptr<CKVItemMulti> text_;
    std::deque<CKVItemButton> flags_;
};

}  // namespace

bool EditTemplate(CToolkit& toolkit, CKVItemContainer* container, std::string_view prefix, std::string_view name,
                  bool per_tool) {
    return CEditTemplateDlg(toolkit, container, prefix, name, per_tool).RunModal();
}

TemplateLines LinesOfText(std::string_view text) {
    TemplateLines lines;
    while (!text.empty()) {
        const size_t end = text.find('\r');
        lines.push_back({{}, std::string(text.substr(0, end))});
        text.remove_prefix(end == std::string_view::npos ? text.size() : std::min(end + 2, text.size()));
    }
    return lines;
}

}  // namespace brindle
