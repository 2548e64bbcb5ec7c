// Definitions and datasets of run-time data: the lines of a tuning that say which values are settled at output time.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tuning/kv_container.h"

namespace brindle {

// A row, column or message of the definition. A hidden one is not offered to the user: its value comes from the
// dataset.
struct CRunTimeDefItem {
    std::string name;
    bool hidden = false;
};

// What a run-time data word points to: a message, or a row and a column. All count from 1.
struct RunTimePlace {
    int32_t entry = 0;   // the message or the row
    int32_t column = 0;  // 0 for a message
    bool IsMessage() const { return column == 0; }
};

// What begins a run-time data word.
inline constexpr std::string_view kRunTimeWordOpening = "RTD(";

// What is between the parentheses of a run-time data word, cut at its first comma: one part for a message, two for
// a row and a column. Empty for any other text.
std::vector<std::string_view> PartsOfRunTimeWord(std::string_view word);

// The place of a stored value by its word, such as `RTD(4)` or `RTD(2,3)`; nothing if it has none. No definition needs
// to have it. Stored words are read more freely than those of texts: three characters, and what parentheses, commas and
// `_` separate.
std::optional<RunTimePlace> PlaceOfWord(std::string_view word);
std::string WordOfPlace(RunTimePlace place);

// What a run-time data line says, by its first word: the time of the last change, a row, a column, a message, a
// dataset, or a dataset's value.
enum class DefinitionLine { kTime, kRow, kColumn, kMessage, kDataset, kValue };
inline constexpr std::string_view kDefinitionWords[] = {"UPD", "ROW", "COL", "MSG", "DATASETDEF", "DSD"};

// Nothing if `first_word` is that of another line.
std::optional<DefinitionLine> DefinitionLineOf(std::string_view first_word);

// The kind of a dataset's value by the type word of its line, whose letters count in either case. Nothing for another
// word, which counts as that of plain text.
std::optional<TextKind> TextKindOfValue(std::string_view type_word);

// A named set of default values. Keys are run-time data words such as `RTD(2,3)`.
struct CDataSetItem {
    std::string name;
    CKVItemContainer values;
};

// The datasets in order of definition; names are compared exactly. The first is the default of a run.
class CDataSetContainer {
public:
    bool Add(std::string_view name);     // false if the name exists
    bool Remove(std::string_view name);  // false if there is none of that name
    CDataSetItem* Find(std::string_view name);
    const CDataSetItem* Find(std::string_view name) const;
    bool Exists(std::string_view name) const { return Find(name) != nullptr; }
    CKVItemContainer* ValuesOf(std::string_view name);
    const CKVItemContainer* ValuesAt(size_t index) const;  // null at or past the end
    std::string NameAt(size_t index) const;                // empty at or past the end
    size_t size() const { return sets_.size(); }
    void Clear();
    void Assign(const CDataSetContainer& other);

private:
    std::vector<std::unique_ptr<CDataSetItem>> sets_;
    std::unordered_map<std::string_view, CDataSetItem*> by_name_;  // keys and items lie in sets_
};

// The definition of a tuning, with what the host has computed for its expressions.
class CRunTimeDataDef {
public:
    // Who reads a line, and so what becomes of it.
    enum class ReadMode {
        kCollect = 0,  // a definition file anew: expressions become pending
        kResolve = 1,  // the same file again: expressions take the host's values, unknown ones are emptied
        kTuning = 2,   // a tuning: expressions take the host's values or stay expressions
        kIgnore = 3,   // a tuning whose rows, columns, messages and values are not wanted
    };

    // True if `line` is a run-time data line, whether or not it had any effect.
    bool ReadLine(std::string_view line, ReadMode mode);
    void WriteToList(std::vector<std::string>& list) const;
    // Reads a definition file in place of what is there. An empty path changes nothing and gives true; a file that
    // can't be opened gives false and leaves the definition emptied.
    bool ReadFromFile(const std::string& path, ReadMode mode);
    // The same with a definition that is read already.
    void ReadFromText(std::string_view text, ReadMode mode);
    // The time of last update stays.
    void Clear();
    void Assign(const CRunTimeDataDef& other);

    void AddRow(std::string name, bool hidden);  // an empty name adds nothing; likewise below
    void AddColumn(std::string name, bool hidden);
    void AddMessage(std::string name, bool hidden);

    // Whether the entry that a run-time data word points to is hidden, by its message, or by its row or column.
    bool IsHidden(std::string_view word) const;
    std::string FirstDatasetName() const { return datasets_.NameAt(0); }

    int64_t last_update() const { return last_update_; }  // seconds since the epoch, 0 until set
    void set_last_update(int64_t seconds) { last_update_ = seconds; }
    std::vector<CRunTimeDefItem>& rows() { return rows_; }
    const std::vector<CRunTimeDefItem>& rows() const { return rows_; }
    std::vector<CRunTimeDefItem>& columns() { return columns_; }
    const std::vector<CRunTimeDefItem>& columns() const { return columns_; }
    std::vector<CRunTimeDefItem>& messages() { return messages_; }
    const std::vector<CRunTimeDefItem>& messages() const { return messages_; }
    CDataSetContainer& datasets() { return datasets_; }
    const CDataSetContainer& datasets() const { return datasets_; }
    // From the text of an expression to what the host computed for it.
    CKVItemContainer& expression_values() { return expression_values_; }
    const CKVItemContainer& expression_values() const { return expression_values_; }
    // One item per expression that the host has yet to compute: a CRealKVItem for a real one, else a CTextKVItem.
    CKVItemContainer& pending_expressions() { return pending_expressions_; }

private:
    // The entries that such a line adds to, null if it adds none.
    std::vector<CRunTimeDefItem>* ItemsOf(DefinitionLine line);
    void AddPending(const std::string& expression, bool is_real);
    void ReadDatasetLine(const std::vector<std::string>& words, ReadMode mode);

    int64_t last_update_ = 0;
    std::vector<CRunTimeDefItem> rows_;
    std::vector<CRunTimeDefItem> columns_;
    std::vector<CRunTimeDefItem> messages_;
    CDataSetContainer datasets_;
    CKVItemContainer expression_values_;
    CKVItemContainer pending_expressions_;
};

}  // namespace brindle
