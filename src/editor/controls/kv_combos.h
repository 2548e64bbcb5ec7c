// Drop-down lists bound to keys.
#pragma once

#include <string>
#include <vector>

#include "editor/controls/bound_control.h"

namespace brindle {

// Each entry is one of several Boolean keys. Choosing one makes its key true and those of all other entries false.
class CKVItemCombo : public CBoundControl {
public:
    CKVItemCombo(const ControlPlace& place, const ControlSpec& spec);

    // Empties the list; the combo is unbound then.
    void Reset();
    // Selects the entry if its key is true, so of several true keys the last one wins.
    void AddEntry(CKVItemContainer* container, std::string_view key, std::string_view text, bool by_default);
    CListControl& control() { return control_; }
    const CListControl& control() const { return control_; }

private:
    void Commit();

    CListControl& control_;
    std::vector<std::string> keys_;  // by entry
};

// Chooses a number of decimals; the entries are fixed. A value that is none of theirs selects nothing.
class CNDecCombo : public CBoundControl {
public:
    CNDecCombo(const ControlPlace& place, const ControlSpec& spec);

    void Bind(CKVItemContainer* container, std::string_view key, int32_t by_default);
    CListControl& control() { return control_; }

private:
    void Commit();

    CListControl& control_;
};

}  // namespace brindle
