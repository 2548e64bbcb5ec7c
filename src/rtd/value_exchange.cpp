#include "rtd/value_exchange.h"

#include <optional>
#include <utility>
#include <vector>

#include "platform/local_time.h"
#include "platform/user_store.h"

namespace brindle {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text.append(line).append(kLineEnd);
    return text;
}

// Only the pair ends a line: a value may hold either character alone.
std::vector<std::string> SplitAtLineEnds(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const size_t end = text.find(kLineEnd);
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineEnd.size());
    }
    return lines;
}

// Gives all texts the plain kind. They are written in their places, so the walk goes on undisturbed.
void MakePlain(CKVItemContainer& values) {
    for (const auto& [key, item] : values.items()) {
        const auto* const text = dynamic_cast<const CTextKVItem*>(item.get());
        if (text && text->kind() != TextKind::kPlain) values.SetText(key, text->value(), TextKind::kPlain);
    }
}

bool IsText(const CKVItemContainer& values, std::string_view key) {
    return dynamic_cast<const CTextKVItem*>(values.items().Find(key)) != nullptr;
}

// Whether what is stored for `key` may stay. The user cannot have set a hidden entry, and what the host computed for
// this job is newer than anything stored.
bool MayKeepStored(const CRunTimeDataDef& definition, std::string_view key, const CTextKVItem& item) {
    return item.kind() != TextKind::kTextExpression && !definition.IsHidden(key);
}

bool AreWanted(const std::string& date, const CRunTimeDataDef& definition, const AskUser& ask) {
    if (ParseTimeStamp(date) >= definition.last_update()) return true;
    return ask && ask(kStaleValuesQuestion);
}

}  // namespace

const char* const kStaleValuesQuestion =
    "Warning: The run time definition has been updated since these values were last used. Do you still want to use "
    "these default values?";

std::string RecordName(std::string_view tuning_pick, std::string_view dataset) {
    return std::string(tuning_pick).append("-").append(dataset);
}

void SaveRunTimeValues(const std::string& name, const CKVItemContainer& values) {
    std::vector<std::string> lines;
    values.WriteToList(lines);
    WriteUserRecord(name, {FormatTimeStamp(Now()), JoinLines(lines)});
}

bool LoadStoredValues(const std::string& name, CKVItemContainer& values, std::string& date) {
    values.Clear();
    date.clear();
    std::optional<UserRecord> record = ReadUserRecord(name);
    if (!record) return false;
    date = std::move(record->date);
    values.ReadFromList(SplitAtLineEnds(record->data));
    return true;
}

void LoadRunTimeValues(const CRunTimeDataDef& definition, const std::string& dataset, const std::string& tuning_pick,
                       const AskUser& ask, CKVItemContainer& values) {
    std::string date;
    const bool found = LoadStoredValues(RecordName(tuning_pick, dataset), values, date);
    const bool use_stored = found && AreWanted(date, definition, ask);
    MakePlain(values);
    const CDataSetItem* const defaults = definition.datasets().Find(dataset);
    if (!defaults) return;
    for (const auto& [key, item] : defaults->values.items()) {
        const auto* const text = dynamic_cast<const CTextKVItem*>(item.get());
        if (!text) continue;
        if (use_stored && MayKeepStored(definition, key, *text) && IsText(values, key)) continue;
        values.SetText(key, text->value(), TextKind::kPlain);
    }
}

void SettleRunValues(const CRunTimeDataDef& definition, const std::string& tuning_pick, std::string& dataset,
                     CKVItemContainer& values) {
    if (dataset.empty() || !definition.datasets().Exists(dataset)) dataset = definition.FirstDatasetName();
    LoadRunTimeValues(definition, dataset, tuning_pick, nullptr, values);
}

}  // namespace brindle
