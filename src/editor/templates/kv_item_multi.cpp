#include "editor/templates/kv_item_multi.h"

#include "editor/controls/edit_menu.h"
#include "editor/run_time_data/run_time_questions.h"
#include "editor/templates/choose_at_dir_dlg.h"

namespace brindle {

CKVItemMulti::CKVItemMulti(const ControlPlace& place)
    : toolkit_(place.toolkit), control_(place.form.AddMultiEdit(PlainSpec(ControlKind::kMulti))) {
    control_.menu_wanted.Set([this] { OpenMenu(); });
}

TextRange CKVItemMulti::ValidSelection() const {
    const TextRange range = control_.GetSelection();
    return range.begin <= range.end && range.end <= control_.GetText().size() ? range : TextRange{};
}

std::string CKVItemMulti::GetSelectedWord() const {
    const TextRange range = ValidSelection();
    std::string word = control_.GetText().substr(range.begin, range.end - range.begin);
    if (word.starts_with(' ')) word.erase(0, 1);
    if (word.ends_with(' ')) word.pop_back();
    return word;
}

void CKVItemMulti::ReplaceSelection(std::string_view text) {
    if (text.empty()) return;
    const TextRange range = ValidSelection();
    control_.SetText(control_.GetText().replace(range.begin, range.end - range.begin, text));
    const size_t caret = range.begin + text.size();
    control_.SetSelection({caret, caret});
    control_.ScrollCaretIntoView();
}

void CKVItemMulti::InsertDirective() {
    std::string word = GetSelectedWord();
    if (!word.starts_with('@')) word.clear();
    if (const auto directive = ChooseDirective(toolkit_, word)) ReplaceSelection('<' + *directive + '>');
}

void CKVItemMulti::InsertRunTimeData() {
    if (tuning_ == nullptr) return;
    const auto reference = AskForRunTimeValue(toolkit_, tuning_->definition(), GetSelectedWord());
    if (reference) ReplaceSelection('<' + *reference + '>');
}

void CKVItemMulti::OpenMenu() {
    RunEditMenu(toolkit_, control_,
                {{"Insert RunTimeData", true, [this] { InsertRunTimeData(); }},
                 {"Insert @Directive", true, [this] { InsertDirective(); }}});
}

}  // namespace brindle
