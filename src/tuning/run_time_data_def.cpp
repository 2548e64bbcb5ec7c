#include "tuning/run_time_data_def.h"

#include <algorithm>
#include <optional>

#include "platform/local_time.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "text/ascii.h"
#include "text/numbers.h"
#include "text/words.h"
#include "tuning/type_words.h"

namespace brindle {
namespace {

using Items = std::vector<CRunTimeDefItem>;

void AddItem(Items& items, std::string name, bool hidden) {
    if (!name.empty()) items.push_back({std::move(name), hidden});
}

std::string_view WordOf(DefinitionLine line) { return kDefinitionWords[static_cast<size_t>(line)]; }

void WriteItems(DefinitionLine kind, const Items& items, std::vector<std::string>& list) {
    for (const CRunTimeDefItem& item : items) {
        std::string line(WordOf(kind));
        line.append(" TEXT ").append(EscapeBlanks(item.name)).append(" ");
        if (item.hidden) line.append("HIDE");
        list.push_back(std::move(line));
    }
}

void WriteDataset(const std::string& name, const CKVItemContainer& values, std::vector<std::string>& list) {
    std::vector<std::string> lines;
    values.WriteToList(lines);
    for (const std::string& line : lines)
        list.push_back(std::string(WordOf(DefinitionLine::kValue)).append(" ").append(name).append(" ").append(line));
}

bool Has(const Items& items, int32_t number) { return number >= 1 && static_cast<size_t>(number) <= items.size(); }

bool IsHiddenAt(const Items& items, int32_t number) { return items[static_cast<size_t>(number) - 1].hidden; }

}  // namespace

std::vector<std::string_view> PartsOfRunTimeWord(std::string_view word) {
    if (!word.starts_with(kRunTimeWordOpening) || !word.ends_with(')')) return {};
    const std::string_view inside =
        word.substr(kRunTimeWordOpening.size(), word.size() - kRunTimeWordOpening.size() - 1);
    const size_t comma = inside.find(',');
    if (comma == inside.npos) return {inside};
    return {inside.substr(0, comma), inside.substr(comma + 1)};
}

std::optional<RunTimePlace> PlaceOfWord(std::string_view word) {
    if (word.size() <= 3) return std::nullopt;
    std::string numbers(word.substr(3));
    std::replace_if(
        numbers.begin(), numbers.end(), [](char c) { return c == '(' || c == ')' || c == ',' || c == '_'; }, ' ');
    const std::vector<std::string> words = SplitQuotedWords(numbers);
    if (words.empty() || words.size() > 2) return std::nullopt;
    const int32_t entry = LeadingInt(words[0]);
    const int32_t column = words.size() == 2 ? LeadingInt(words[1]) : 0;
    if (entry < 1 || (words.size() == 2 && column < 1)) return std::nullopt;
    return RunTimePlace{entry, column};
}

std::string WordOfPlace(RunTimePlace place) {
    std::string word = std::string(kRunTimeWordOpening) + std::to_string(place.entry);
    if (!place.IsMessage()) word.append(",").append(std::to_string(place.column));
    return word.append(")");
}

std::optional<DefinitionLine> DefinitionLineOf(std::string_view first_word) {
    const auto* const found = std::find(std::begin(kDefinitionWords), std::end(kDefinitionWords), first_word);
    if (found == std::end(kDefinitionWords)) return std::nullopt;
    return static_cast<DefinitionLine>(found - std::begin(kDefinitionWords));
}

std::optional<TextKind> TextKindOfValue(std::string_view type_word) {
    for (const TypeWordInfo& info : kTypeWords) {
        if (info.kind == KeyKind::kText && EqualNoCase(type_word, info.word)) return info.text_kind;
    }
    return std::nullopt;
}

bool CDataSetContainer::Add(std::string_view name) {
    if (Exists(name)) return false;
    sets_.push_back(std::make_unique<CDataSetItem>());
    sets_.back()->name = name;
    by_name_.emplace(sets_.back()->name, sets_.back().get());
    return true;
}

bool CDataSetContainer::Remove(std::string_view name) {
    const auto found = by_name_.find(name);
    if (found == by_name_.end()) return false;
    const CDataSetItem* const removed = found->second;
    by_name_.erase(found);
    std::erase_if(sets_, [removed](const auto& set) { return set.get() == removed; });
    return true;
}

CDataSetItem* CDataSetContainer::Find(std::string_view name) {
    const auto found = by_name_.find(name);
    return found == by_name_.end() ? nullptr : found->second;
}

const CDataSetItem* CDataSetContainer::Find(std::string_view name) const {
    const auto found = by_name_.find(name);
    return found == by_name_.end() ? nullptr : found->second;
}

CKVItemContainer* CDataSetContainer::ValuesOf(std::string_view name) {
    CDataSetItem* const set = Find(name);
    return set ? &set->values : nullptr;
}

const CKVItemContainer* CDataSetContainer::ValuesAt(size_t index) const {
    return index < sets_.size() ? &sets_[index]->values : nullptr;
}

std::string CDataSetContainer::NameAt(size_t index) const {
    return index < sets_.size() ? sets_[index]->name : std::string();
}

void CDataSetContainer::Clear() {
    by_name_.clear();
    sets_.clear();
}

void CDataSetContainer::Assign(const CDataSetContainer& other) {
    if (this == &other) return;
    Clear();
    for (const auto& set : other.sets_) {
        Add(set->name);
        sets_.back()->values.Assign(set->values);
    }
}

bool CRunTimeDataDef::ReadLine(std::string_view line, ReadMode mode) {
    const std::optional<DefinitionLine> kind = DefinitionLineOf(QuotedWord(line, 1));
    if (!kind) return false;
    const std::vector<std::string> words = SplitQuotedWords(line);
    if (words.size() < 2) return false;
    if (kind == DefinitionLine::kDataset) {
        datasets_.Add(UnescapeBlanks(words[1]));
    } else if (kind == DefinitionLine::kTime) {
        last_update_ = ParseTimeStamp(words[1]);
    } else if (kind == DefinitionLine::kValue) {
        if (words.size() >= 5 && mode != ReadMode::kIgnore) ReadDatasetLine(words, mode);
    } else if (words.size() >= 3 && mode != ReadMode::kIgnore) {
        const bool hidden = words.size() >= 4 && words[3] == "HIDE";
        AddItem(*ItemsOf(*kind), UnescapeBlanks(words[2]), hidden);
    }
    return true;
}

std::vector<CRunTimeDefItem>* CRunTimeDataDef::ItemsOf(DefinitionLine line) {
    switch (line) {
        case DefinitionLine::kRow: return &rows_;
        case DefinitionLine::kColumn: return &columns_;
        case DefinitionLine::kMessage: return &messages_;
        default: return nullptr;
    }
}

void CRunTimeDataDef::ReadDatasetLine(const std::vector<std::string>& words, ReadMode mode) {
    TextKind kind = TextKind::kPlain;
    std::string value = UnescapeWord(words[4]);
    const TextKind written = TextKindOfValue(words[2]).value_or(TextKind::kPlain);
    const bool is_real = written == TextKind::kRealExpression;
    if (written != TextKind::kPlain) {
        kind = TextKind::kTextExpression;
        if (mode == ReadMode::kCollect) {
            AddPending(value, is_real);
            value.clear();
        } else if (std::string computed; expression_values_.GetText(value, computed)) {
            value = std::move(computed);
        } else if (mode == ReadMode::kTuning) {
            value = words[4];
            kind = written;
        } else {
            value.clear();
        }
    }
    CKVItemContainer* const values = datasets_.ValuesOf(UnescapeBlanks(words[1]));
    if (values == nullptr) return;
    values->ParseLine(
        std::string(TypeWord(KeyKind::kText, kind)).append(" ").append(words[3]).append(" ").append(EscapeWord(value)));
}

void CRunTimeDataDef::AddPending(const std::string& expression, bool is_real) {
    if (expression.empty()) return;
    if (is_real) {
        pending_expressions_.SetReal(expression, 0.0);
    } else {
        pending_expressions_.SetText(expression, "", TextKind::kPlain);
    }
}

void CRunTimeDataDef::WriteToList(std::vector<std::string>& list) const {
    list.push_back(std::string(WordOf(DefinitionLine::kTime)).append(" ").append(FormatTimeStamp(last_update_)));
    WriteItems(DefinitionLine::kRow, rows_, list);
    WriteItems(DefinitionLine::kColumn, columns_, list);
    WriteItems(DefinitionLine::kMessage, messages_, list);
    for (size_t i = 0; i < datasets_.size(); ++i)
        list.push_back(std::string(WordOf(DefinitionLine::kDataset)).append(" ").append(datasets_.NameAt(i)));
    for (size_t i = 0; i < datasets_.size(); ++i) WriteDataset(datasets_.NameAt(i), *datasets_.ValuesAt(i), list);
}

bool CRunTimeDataDef::ReadFromFile(const std::string& path, ReadMode mode) {
    if (path.empty()) return true;
    const std::optional<std::string> text = ReadWholeFile(path);
    ReadFromText(text ? *text : std::string_view(), mode);
    return text.has_value();
}

void CRunTimeDataDef::ReadFromText(std::string_view text, ReadMode mode) {
    columns_.clear();
    rows_.clear();
    messages_.clear();
    if (mode != ReadMode::kResolve) expression_values_.Clear();
    pending_expressions_.Clear();
    datasets_.Clear();
    // Names and expressions go out to the host, which gives them back as characters.
    for (const std::string_view line : SplitLines(text)) ReadLine(AsUtf8(line), mode);
}

void CRunTimeDataDef::Clear() {
    rows_.clear();
    columns_.clear();
    messages_.clear();
    datasets_.Clear();
    pending_expressions_.Clear();
    expression_values_.Clear();
}

void CRunTimeDataDef::Assign(const CRunTimeDataDef& other) {
    last_update_ = other.last_update_;
    columns_ = other.columns_;
    rows_ = other.rows_;
    messages_ = other.messages_;
    datasets_.Assign(other.datasets_);
    pending_expressions_.Assign(other.pending_expressions_);
    expression_values_.Assign(other.expression_values_);
}

void CRunTimeDataDef::AddRow(std::string name, bool hidden) { AddItem(rows_, std::move(name), hidden); }

void CRunTimeDataDef::AddColumn(std::string name, bool hidden) { AddItem(columns_, std::move(name), hidden); }

void CRunTimeDataDef::AddMessage(std::string name, bool hidden) { AddItem(messages_, std::move(name), hidden); }

bool CRunTimeDataDef::IsHidden(std::string_view word) const {
    const std::optional<RunTimePlace> place = PlaceOfWord(word);
    if (!place) return false;
    if (place->IsMessage()) return Has(messages_, place->entry) && IsHiddenAt(messages_, place->entry);
    if (!Has(rows_, place->entry) || !Has(columns_, place->column)) return false;
    return IsHiddenAt(rows_, place->entry) || IsHiddenAt(columns_, place->column);
}

}  // namespace brindle
