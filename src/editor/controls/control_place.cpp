#include "editor/controls/control_place.h"

#include <algorithm>

#include "tuning/key_catalogue.h"

namespace brindle {
namespace {

std::string_view MeaningOf(std::string_view key) {
    if (const KeyMatch match = MatchKey(key); match.info != nullptr) return match.info->meaning;
    const auto keys = KeyCatalogue();
    const auto row = std::find_if(keys.begin(), keys.end(), [key](const KeyInfo& info) { return info.name == key; });
    return row == keys.end() ? std::string_view() : row->meaning;
}

}  // namespace

ControlSpec KeySpec(ControlKind kind, std::string_view key, std::string_view label, std::string_view group) {
    return {kind, std::string(key), std::string(label), std::string(group), std::string(MeaningOf(key))};
}

std::string_view WithoutToolPrefix(std::string_view key) { return key.substr(MatchKey(key).tool_prefix.size()); }

}  // namespace brindle
