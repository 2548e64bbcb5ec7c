#include "editor/controls/kv_number_edits.h"

#include <cmath>

#include "editor/messages.h"
#include "generator/number_format.h"
#include "geometry/plane_math.h"
#include "geometry/rounding.h"
#include "text/numbers.h"

namespace brindle {
namespace {

// The message for a value that the rules refuse, empty for any other.
std::string_view WhyRefused(double value, const RealRules& rules) {
    if (!rules.allow_negative && value < 0.0) return messages::kNegativeRefused;
    if (!rules.allow_zero && value == 0.0) return messages::kZeroRefused;
    return {};
}

}  // namespace

// ---- Reals ----

CKVRealEdit::CKVRealEdit(const ControlPlace& place, const ControlSpec& spec)
    : CBoundControl(place), control_(place.form.AddEdit(spec)) {
    control_.focus_lost.Set([this] {
        Commit();
        ReportChange();
    });
}

void CKVRealEdit::Bind(CKVItemContainer* container, std::string_view key, double by_default, const RealRules& rules) {
    BindTo(container, key);
    rules_ = rules;
    double value = by_default;
    if (container != nullptr && !container->GetReal(key, value)) container->SetReal(key, value);
    if (rules_.in_inches) value /= kMillimetresPerInch;
    control_.SetText(Shown(Rounded(value)));
}

double CKVRealEdit::Rounded(double value) const { return decimals_ >= 0 ? RoundToDecimals(value, decimals_) : value; }

std::string CKVRealEdit::Shown(double value) const { return std::string(CNumberText(value, decimals_, {}).view()); }

void CKVRealEdit::Commit() {
    if (container() == nullptr) return;
    std::string text = control_.GetText();
    const double value = Rounded(LeadingDouble(text));
    if (decimals_ >= 0) text = Shown(value);
    double stored = rules_.in_inches ? value * kMillimetresPerInch : value;
    if (!std::isfinite(stored)) stored = 0.0;  // as text of a number that no double can hold
    if (const std::string_view why = WhyRefused(stored, rules_); !why.empty()) {
        toolkit().ShowMessage(why);
        return;
    }
    container()->SetReal(key(), stored);
    control_.SetText(text);
}

// ---- Whole numbers ----

CKVUintEdit::CKVUintEdit(const ControlPlace& place, const ControlSpec& spec)
    : CBoundControl(place), control_(place.form.AddEdit(spec)) {
    control_.focus_lost.Set([this] {
        Commit();
        ReportChange();
    });
}

void CKVUintEdit::Bind(CKVItemContainer* container, std::string_view key, int32_t by_default) {
    BindTo(container, key);
    int32_t value = by_default;
    if (container != nullptr && !container->GetInt(key, value)) container->SetInt(key, value);
    control_.SetText(std::to_string(value));
}

void CKVUintEdit::Commit() {
    if (container() == nullptr) return;
    const int32_t value = LeadingInt(control_.GetText());
    if (value == 0 && !allow_zero_) {
        toolkit().ShowMessage(messages::kZeroRefused);
        return;
    }
    container()->SetInt(key(), value);
}

}  // namespace brindle
