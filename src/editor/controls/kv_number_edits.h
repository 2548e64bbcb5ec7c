// One-line edits bound to numbers. A keystroke changes nothing in the tuning: they commit when they lose the focus. A
// refused value stays on the screen, the old one in the tuning, and the user is not held in the field.
#pragma once

#include <cstdint>

#include "editor/controls/bound_control.h"

namespace brindle {

// What the edit of a real takes, and how it shows it.
struct RealRules {
    bool in_inches = false;  // the stored value is millimetres, the shown one inches
    bool allow_negative = true;
    bool allow_zero = true;
};

class CKVRealEdit : public CBoundControl {
public:
    CKVRealEdit(const ControlPlace& place, const ControlSpec& spec);

    // How many decimals the value has on the screen, and is rounded to when it is committed; -1 for six without
    // rounding. Takes effect at the next binding.
    void SetDecimals(int32_t decimals) { decimals_ = decimals; }
    // The default is stored as it is, in inches too.
    void Bind(CKVItemContainer* container, std::string_view key, double by_default, const RealRules& rules);
    CEditControl& control() { return control_; }

private:
    double Rounded(double value) const;
    std::string Shown(double value) const;
    void Commit();

    CEditControl& control_;
    RealRules rules_;
    int32_t decimals_ = -1;
};

// Takes negative numbers too. The text stays as it was typed.
class CKVUintEdit : public CBoundControl {
public:
    CKVUintEdit(const ControlPlace& place, const ControlSpec& spec);

    void RefuseZero() { allow_zero_ = false; }
    void Bind(CKVItemContainer* container, std::string_view key, int32_t by_default);
    CEditControl& control() { return control_; }

private:
    void Commit();

    CEditControl& control_;
    bool allow_zero_ = true;
};

}  // namespace brindle
