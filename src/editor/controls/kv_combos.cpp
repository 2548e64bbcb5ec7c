#include "editor/controls/kv_combos.h"

#include "text/numbers.h"

namespace brindle {
namespace {

struct DecimalsEntry {
    std::string_view text;
    int32_t stored;
};

constexpr DecimalsEntry kDecimalsEntries[] = {{"0", kWholeNumber}, {".0", 0}, {".1", 1},
                                              {".2", 2},           {".3", 3}, {".4", 4}};

}  // namespace

// ---- Entries with keys ----

CKVItemCombo::CKVItemCombo(const ControlPlace& place, const ControlSpec& spec)
    : CBoundControl(place), control_(place.form.AddList(spec)) {
    control_.selected.Set([this] {
        Commit();
        ReportChange();
    });
}

void CKVItemCombo::Reset() {
    control_.Empty();
    keys_.clear();
    BindTo(nullptr, {});
}

void CKVItemCombo::AddEntry(CKVItemContainer* container, std::string_view key, std::string_view text, bool by_default) {
    BindTo(container, {});
    const int index = control_.AddEntry(text);
    keys_.emplace_back(key);
    if (container == nullptr) return;
    int32_t value = by_default ? 1 : 0;
    if (!container->GetBool(key, value)) container->SetBool(key, value);
    if (value != 0) control_.Select(index);
}

void CKVItemCombo::Commit() {
    if (container() == nullptr) return;
    const int chosen = control_.GetSelected();
    int index = 0;
    for (const std::string& key : keys_) container()->SetBool(key, index++ == chosen ? 1 : 0);
}

// ---- Decimals ----

CNDecCombo::CNDecCombo(const ControlPlace& place, const ControlSpec& spec)
    : CBoundControl(place), control_(place.form.AddList(spec)) {
    control_.selected.Set([this] {
        Commit();
        ReportChange();
    });
}

void CNDecCombo::Bind(CKVItemContainer* container, std::string_view key, int32_t by_default) {
    BindTo(container, key);
    int32_t value = by_default;
    if (container != nullptr && !container->GetInt(key, value)) container->SetInt(key, value);
    control_.Empty();
    for (const DecimalsEntry& entry : kDecimalsEntries) {
        const int index = control_.AddEntry(entry.text);
        control_.SetValue(index, entry.stored);
        if (entry.stored == value) control_.Select(index);
    }
}

void CNDecCombo::Commit() {
    const int chosen = control_.GetSelected();
    if (container() != nullptr && chosen >= 0) container()->SetInt(key(), control_.GetValue(chosen));
}

}  // namespace brindle
