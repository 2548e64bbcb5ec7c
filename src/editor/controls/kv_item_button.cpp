#include "editor/controls/kv_item_button.h"

namespace brindle {

CKVItemButton::CKVItemButton(const ControlPlace& place, const ControlSpec& spec)
    : CBoundControl(place), control_(place.form.AddButton(spec)) {
    control_.clicked.Set([this] { OnClick(); });
}

void CKVItemButton::Bind(CKVItemContainer* container, std::string_view key, bool by_default) {
    BindTo(container, key);
    int32_t value = by_default ? 1 : 0;
    if (container != nullptr && !container->GetBool(key, value)) container->SetBool(key, value);
    control_.SetCheck(value != 0);
}

void CKVItemButton::Commit() {
    if (container() == nullptr) return;
    for (const KeyRef other : choice_) container()->SetBool(other->name, 0);
    container()->SetBool(key(), control_.GetCheck() ? 1 : 0);
}

void CKVItemButton::OnClick() {
    Commit();
    ReportChange();
    if (owner() != nullptr) owner()->OnBoundButtonClicked(*this);
}

}  // namespace brindle
