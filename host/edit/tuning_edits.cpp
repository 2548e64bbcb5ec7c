#include "host/edit/tuning_edits.h"

#include "host/reference/key_line.h"
#include "tuning/key_catalogue.h"

namespace brindle::host {
namespace {

std::string LineOf(const CKVItemContainer& tuning, const std::string& key) {
    return tuning.FormatItem(key, tuning.items().Find(key));
}

// The line that the editor writes for a missing key; empty if it writes none.
std::string DefaultLine(const std::string& key) {
    const KeyInfo* const info = MatchKey(key).info;
    if (info == nullptr || !info->editor_default.HasValue()) return {};
    return LineOfDefault(key, info->kind, info->editor_default);
}

std::vector<std::string> DefinitionLines(const CBrindleOpts& tuning) {
    std::vector<std::string> lines;
    tuning.definition().WriteToList(lines);
    return lines;
}

}  // namespace

std::vector<std::string> EditedKeys(const CBrindleOpts& before, const CBrindleOpts& after) {
    std::vector<std::string> keys;
    for (const auto& [key, item] : before.items()) {
        if (LineOf(before, key) != LineOf(after, key)) keys.push_back(key);
    }
    for (const auto& [key, item] : after.items()) {
        if (before.items().Find(key) == nullptr && LineOf(after, key) != DefaultLine(key)) keys.push_back(key);
    }
    if (DefinitionLines(before) != DefinitionLines(after)) keys.emplace_back("run-time data");
    return keys;
}

std::vector<std::string> ChangedByDefaults(const CBrindleOpts& before, const CBrindleOpts& after) {
    std::vector<std::string> keys;
    for (const auto& [key, item] : after.items()) {
        const KeyInfo* const info = MatchKey(key).info;
        if (before.items().Find(key) != nullptr || info == nullptr) continue;
        const bool differs = info->read_default.HasValue() && info->read_default != info->editor_default;
        if (differs && LineOf(after, key) == DefaultLine(key)) keys.push_back(key);
    }
    return keys;
}

}  // namespace brindle::host
