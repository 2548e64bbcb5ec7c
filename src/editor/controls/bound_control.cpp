#include "editor/controls/bound_control.h"

namespace brindle {

void CBoundControl::BindTo(CKVItemContainer* container, std::string_view key) {
    container_ = container;
    key_ = key;
}

void CBoundControl::MarkPage() const {
    if (owner() != nullptr) owner()->SetModified(true);
}

void CBoundControl::ReportChange() const {
    MarkPage();
    if (owner() != nullptr) owner()->UpdateControlStates();
}

}  // namespace brindle
