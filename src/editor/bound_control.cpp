#include "editor/bound_control.h"

#include "editor/params_page.h"

namespace brindle {

void CBoundControl::BindTo(CKVItemContainer* container, std::string_view key) {
    container_ = container;
    key_ = key;
}

void CBoundControl::MarkPage() const {
    if (page() != nullptr) page()->SetModified(true);
}

void CBoundControl::TellPage() const {
    MarkPage();
    if (page() != nullptr) page()->UpdateControlStates();
}

}  // namespace brindle
