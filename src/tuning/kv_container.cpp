#include "tuning/kv_container.h"

#include <algorithm>
#include <optional>

#include "platform/text_file.h"
#include "text/ascii.h"
#include "text/numbers.h"
#include "text/words.h"
#include "tuning/type_words.h"

namespace brindle {
namespace {

constexpr int kFileDecimals = 9;

// The lines of a template from its N words and texts, which follow the key in pairs.
TemplateLines LinesOfWords(const std::vector<std::string_view>& words) {
    TemplateLines lines;
    for (size_t i = 2; i + 1 < words.size(); i += 2) {
        CNWordInfo n_word;
        if (ParseNWord(words[i], n_word)) lines.push_back({n_word, UnescapeWord(words[i + 1])});
    }
    return lines;
}

// The item of a line of at least three words, null if the type word is unknown.
std::unique_ptr<CKVItem> ItemOfWords(const std::vector<std::string_view>& words) {
    const TypeWordInfo* const type = FindTypeWord(words[0]);
    const std::string_view value = words[2];
    if (type == nullptr) return nullptr;
    switch (type->kind) {
        case KeyKind::kBool: return std::make_unique<CBoolKVItem>(EqualNoCase(value, "true") ? 1 : 0);
        case KeyKind::kInt: return std::make_unique<CIntKVItem>(TruncateToInt32(LeadingDouble(value)));
        case KeyKind::kReal: return std::make_unique<CRealKVItem>(LeadingDouble(value));
        case KeyKind::kText: return std::make_unique<CTextKVItem>(UnescapeWord(value), type->text_kind);
        case KeyKind::kTemplate: return std::make_unique<CMultiLineKVItem>(LinesOfWords(words));
    }
    return nullptr;
}

std::string JoinWords(std::string_view type, std::string_view key, std::string_view value) {
    std::string line;
    line.reserve(type.size() + key.size() + value.size() + 3);
    return line.append(type).append(" ").append(key).append(" ").append(value).append(" ");
}

std::string FormatTemplate(std::string_view key, const TemplateLines& lines) {
    std::string text(TypeWord(KeyKind::kTemplate));
    text.append(" ").append(key).append(" ");
    for (const CTemplateLine& line : lines) {
        text.append(FormatNWord(line.n_word)).append(" ").append(EscapeWord(line.text)).append(" ");
    }
    return text;
}

// A line and the word by which it is placed among others.
struct KeyedLine {
    std::string key;
    std::string line;
};

std::string PlaceOf(std::string_view line) { return QuotedWord(line, 2); }

// The lines of all items in their own order.
std::vector<KeyedLine> SortedLines(const CKVItemContainer& container) {
    std::vector<KeyedLine> lines;
    lines.reserve(container.items().size());
    for (const auto& [key, item] : container.items()) {
        std::string line = container.FormatItem(key, item.get());
        if (line.empty()) continue;
        std::string place = PlaceOf(line);
        lines.push_back({std::move(place), std::move(line)});
    }
    std::stable_sort(lines.begin(), lines.end(),
                     [](const KeyedLine& a, const KeyedLine& b) { return CompareNoCase(a.key, b.key) < 0; });
    return lines;
}

}  // namespace

void CKVItemMapObj::Insert(std::string_view key, std::unique_ptr<CKVItem> item) {
    if (const auto found = index_.find(key); found != index_.end()) {
        found->second->second = std::move(item);
        return;
    }
    entries_.emplace_back(std::string(key), std::move(item));
    index_.emplace(entries_.back().first, std::prev(entries_.end()));
}

const CKVItem* CKVItemMapObj::Find(std::string_view key) const {
    const const_iterator position = FindPosition(key);
    return position == end() ? nullptr : position->second.get();
}

CKVItemMapObj::const_iterator CKVItemMapObj::FindPosition(std::string_view key) const {
    const auto found = index_.find(key);
    return found == index_.end() ? entries_.end() : const_iterator(found->second);
}

bool CKVItemMapObj::Remove(std::string_view key) {
    const auto found = index_.find(key);
    if (found == index_.end()) return false;
    const Entries::iterator entry = found->second;
    index_.erase(found);
    entries_.erase(entry);
    return true;
}

void CKVItemMapObj::RemoveByPrefix(std::string_view prefix) {
    for (auto entry = entries_.begin(); entry != entries_.end();) {
        const auto next = std::next(entry);
        if (entry->first.size() > prefix.size() && entry->first.starts_with(prefix)) {
            index_.erase(entry->first);
            entries_.erase(entry);
        }
        entry = next;
    }
}

void CKVItemMapObj::CopyByPrefix(std::string_view from, std::string_view to) {
    RemoveByPrefix(to);
    // Copied first and stored afterwards: new keys may begin with `from` too, and are not to be copied again.
    std::vector<std::pair<std::string, std::unique_ptr<CKVItem>>> copies;
    for (const auto& [key, item] : entries_) {
        if (key.size() <= from.size() || !key.starts_with(from)) continue;
        copies.emplace_back(std::string(to) + key.substr(from.size()), item->Clone());
    }
    for (auto& [key, item] : copies) Insert(key, std::move(item));
}

bool CKVItemContainer::ParseLine(std::string_view line) {
    std::vector<std::string_view> words;
    SplitWords(line, words);
    if (words.size() < 3) return false;
    std::unique_ptr<CKVItem> item = ItemOfWords(words);
    if (!item) return false;
    items_.Insert(words[1], std::move(item));
    return true;
}

std::string CKVItemContainer::FormatItem(std::string_view key, const CKVItem* item) const {
    if (const auto* boolean = dynamic_cast<const CBoolKVItem*>(item)) {
        return JoinWords(TypeWord(KeyKind::kBool), key, boolean->GetValueText());
    }
    if (const auto* text = dynamic_cast<const CTextKVItem*>(item)) {
        return JoinWords(TypeWord(KeyKind::kText, text->kind()), key, EscapeWord(text->value()));
    }
    if (const auto* real = dynamic_cast<const CRealKVItem*>(item)) {
        return JoinWords(TypeWord(KeyKind::kReal), key, FixedText(real->value(), kFileDecimals));
    }
    if (const auto* integer = dynamic_cast<const CIntKVItem*>(item)) {
        return JoinWords(std::string(TypeWord(KeyKind::kInt)) + ' ', key, integer->GetValueText());
    }
    if (const auto* lines = dynamic_cast<const CMultiLineKVItem*>(item)) return FormatTemplate(key, lines->lines());
    return {};
}

bool CKVItemContainer::ReadFromFile(const std::string& path) {
    const std::optional<std::string> text = ReadWholeFile(path);
    if (!text) return false;
    for (const std::string_view line : SplitLines(*text)) ParseLine(line);
    return true;
}

// An item's line goes before the first line of the list whose word is greater. Items placed earlier never move that
// place relative to the lines that were in the list at the start, so one merge of the sorted items places them all.
void CKVItemContainer::WriteToList(std::vector<std::string>& list) const {
    std::vector<KeyedLine> lines = SortedLines(*this);
    std::vector<std::string> merged;
    merged.reserve(list.size() + lines.size());
    auto next = lines.begin();
    for (std::string& present : list) {
        const std::string place = PlaceOf(present);
        for (; next != lines.end() && CompareNoCase(place, next->key) > 0; ++next)
            merged.push_back(std::move(next->line));
        merged.push_back(std::move(present));
    }
    for (; next != lines.end(); ++next) merged.push_back(std::move(next->line));
    list = std::move(merged);
}

void CKVItemContainer::Clear() { items_ = CKVItemMapObj(); }

bool CKVItemContainer::GetBool(std::string_view key, int32_t& value) const {
    const auto* item = dynamic_cast<const CBoolKVItem*>(items_.Find(key));
    if (!item) return false;
    value = item->value();
    return true;
}

bool CKVItemContainer::GetInt(std::string_view key, int32_t& value) const {
    const auto* item = dynamic_cast<const CIntKVItem*>(items_.Find(key));
    if (!item) return false;
    value = item->value();
    return true;
}

bool CKVItemContainer::GetReal(std::string_view key, double& value) const {
    const auto* item = dynamic_cast<const CRealKVItem*>(items_.Find(key));
    if (!item) return false;
    value = item->value();
    return true;
}

bool CKVItemContainer::GetText(std::string_view key, std::string& value) const {
    TextKind kind = TextKind::kPlain;
    return GetTextAndKind(key, value, kind);
}

bool CKVItemContainer::GetTextAndKind(std::string_view key, std::string& value, TextKind& kind) const {
    const auto* item = dynamic_cast<const CTextKVItem*>(items_.Find(key));
    if (!item) return false;
    value = item->value();
    kind = item->kind();
    return true;
}

bool CKVItemContainer::GetMulti(std::string_view key, TemplateLines& lines) const {
    const auto* item = dynamic_cast<const CMultiLineKVItem*>(items_.Find(key));
    if (!item) return false;
    lines = item->lines();
    return true;
}

void CKVItemContainer::SetBool(std::string_view key, int32_t value) {
    items_.Insert(key, std::make_unique<CBoolKVItem>(value));
}

void CKVItemContainer::SetInt(std::string_view key, int32_t value) {
    items_.Insert(key, std::make_unique<CIntKVItem>(value));
}

void CKVItemContainer::SetReal(std::string_view key, double value) {
    items_.Insert(key, std::make_unique<CRealKVItem>(value));
}

void CKVItemContainer::SetText(std::string_view key, std::string value, TextKind kind) {
    items_.Insert(key, std::make_unique<CTextKVItem>(std::move(value), kind));
}

void CKVItemContainer::SetMulti(std::string_view key, TemplateLines lines) {
    items_.Insert(key, std::make_unique<CMultiLineKVItem>(std::move(lines)));
}

bool CKVItemContainer::Remove(std::string_view key) { return items_.Remove(key); }

void CKVItemContainer::RemoveByPrefix(std::string_view prefix) { items_.RemoveByPrefix(prefix); }

void CKVItemContainer::CopyByPrefix(std::string_view from, std::string_view to) { items_.CopyByPrefix(from, to); }

void CKVItemContainer::Assign(const CKVItemContainer& other) {
    if (this == &other) return;
    Clear();
    for (const auto& [key, item] : other.items_) items_.Insert(key, item->Clone());
}

void CKVItemContainer::ReadFromList(const std::vector<std::string>& list) {
    for (const std::string& line : list) ParseLine(line);
}

bool IsTrue(const CKVItemContainer* container, std::string_view key, bool if_absent) {
    int32_t value = if_absent ? 1 : 0;
    if (container != nullptr) container->GetBool(key, value);
    return value != 0;
}

}  // namespace brindle
