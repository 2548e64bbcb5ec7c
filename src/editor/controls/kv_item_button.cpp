#include "editor/controls/kv_item_button.h"

#include <algorithm>

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

void CKVItemButton::AddSibling(CKVItemButton& sibling) {
    if (std::find(siblings_.begin(), siblings_.end(), &sibling) == siblings_.end()) siblings_.push_back(&sibling);
}

void CKVItemButton::Commit() {
    if (container() != nullptr) container()->SetBool(key(), control_.GetCheck() ? 1 : 0);
}

void CKVItemButton::OnClick() {
    for (CKVItemButton* const sibling : siblings_) sibling->Commit();
    Commit();
    ReportChange();
    if (owner() != nullptr) owner()->OnBoundButtonClicked(*this);
}

}  // namespace brindle
