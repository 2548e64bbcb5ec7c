// What all controls that are bound to keys of the tuning have in common.
#pragma once

#include <string>
#include <string_view>

#include "editor/controls/control_place.h"
#include "tuning/kv_container.h"

namespace brindle {

class CKVItemButton;

// The page of a bound control, as the control sees it.
class CControlOwner {
public:
    CControlOwner() = default;
    CControlOwner(const CControlOwner&) = delete;
    CControlOwner& operator=(const CControlOwner&) = delete;
    virtual ~CControlOwner() = default;

    virtual void SetModified(bool modified) = 0;
    // The rule set: enables, disables, shows and hides controls by the state of the controls and the tuning. Every
    // bound control that changes calls it, except text edits.
    virtual void UpdateControlStates() {}
    // `control` was clicked, and the rule set has run.
    virtual void OnBoundButtonClicked(CKVItemButton& /*control*/) {}
};

// A control writes its key as soon as the user has changed it; there is no working copy. Binding reads the key, and
// writes the default if the key is missing or of another kind. The container must outlive the control or its next
// binding; until the first binding the control commits nothing. On a page each change marks the page as modified.
class CBoundControl {
public:
    CBoundControl(const CBoundControl&) = delete;
    CBoundControl& operator=(const CBoundControl&) = delete;

    // Commits nothing until the next binding.
    void Unbind() { BindTo(nullptr, {}); }

protected:
    explicit CBoundControl(const ControlPlace& place) : place_(place) {}
    ~CBoundControl() = default;

    // `container` may be null: the control is unbound then.
    void BindTo(CKVItemContainer* container, std::string_view key);
    CKVItemContainer* container() const { return container_; }
    const std::string& key() const { return key_; }
    CToolkit& toolkit() const { return place_.toolkit; }
    CControlOwner* owner() const { return place_.owner; }

    void MarkPage() const;
    // Marks the page and runs its rule set.
    void ReportChange() const;

private:
    ControlPlace place_;
    CKVItemContainer* container_ = nullptr;
    std::string key_;
};

}  // namespace brindle
