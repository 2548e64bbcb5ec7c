#include "editor/controls/kv_text_edit.h"

#include "editor/controls/edit_menu.h"
#include "editor/run_time_data/run_time_questions.h"
#include "tuning/options.h"

namespace brindle {

CKVTextEdit::CKVTextEdit(const ControlPlace& place, const ControlSpec& spec)
    : CBoundControl(place), control_(place.form.AddEdit(spec)) {
    control_.changed.Set([this] { Commit(); });
    control_.menu_wanted.Set([this] { OpenMenu(); });
}

void CKVTextEdit::Bind(CKVItemContainer* container, std::string_view key, std::string_view by_default) {
    BindTo(container, key);
    std::string value(by_default);
    if (container != nullptr && !container->GetText(key, value)) container->SetText(key, value, TextKind::kPlain);
    control_.SetText(value);
}

void CKVTextEdit::ReferenceRunTimeData() {
    const auto* const tuning = dynamic_cast<CBrindleOpts*>(container());
    if (tuning == nullptr) return;
    const auto reference = AskForRunTimeValue(toolkit(), tuning->definition(), control_.GetText());
    if (!reference) return;
    control_.SetText(*reference);
    Commit();
}

void CKVTextEdit::Commit() {
    if (container() == nullptr) return;
    container()->SetText(key(), control_.GetText(), TextKind::kPlain);
    MarkPage();
}

void CKVTextEdit::OpenMenu() {
    const bool has_tuning = dynamic_cast<CBrindleOpts*>(container()) != nullptr;
    RunEditMenu(toolkit(), control_, {{"Reference RunTimeData", has_tuning, [this] { ReferenceRunTimeData(); }}});
}

}  // namespace brindle
