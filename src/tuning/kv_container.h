// The keyed store of typed items: base of the tuning, values of datasets, values of a run.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tuning/kv_items.h"

namespace brindle {

// Owns items under exact, case-sensitive keys. Iterates in the order in which keys were first written: a key that is
// written again keeps its place, a removed one loses it. Copies keep the order.
class CKVItemMapObj {
public:
    using Entry = std::pair<const std::string, std::unique_ptr<CKVItem>>;
    using Entries = std::list<Entry>;
    using const_iterator = Entries::const_iterator;

    // Stores `item` under `key`; an older item of that key is destroyed.
    void Insert(std::string_view key, std::unique_ptr<CKVItem> item);
    const CKVItem* Find(std::string_view key) const;
    // An iterator at `key`, end() if there is no such key.
    const_iterator FindPosition(std::string_view key) const;
    bool Remove(std::string_view key);
    // Removes the items whose keys begin with `prefix` and are longer than it.
    void RemoveByPrefix(std::string_view prefix);
    // RemoveByPrefix(`to`), then for every key that begins with `from` and is longer, a copy of its item under `to` and
    // the rest of the key. So a prefix copied to itself is emptied.
    void CopyByPrefix(std::string_view from, std::string_view to);

    const_iterator begin() const { return entries_.begin(); }
    const_iterator end() const { return entries_.end(); }
    size_t size() const { return entries_.size(); }

private:
    Entries entries_;
    std::unordered_map<std::string_view, Entries::iterator> index_;  // keys point into entries_
};

// The store class of the system. Every typed read leaves its out-parameter alone when it fails, so callers preset their
// default. Not thread-safe.
class CKVItemContainer {
public:
    CKVItemContainer() = default;
    CKVItemContainer(const CKVItemContainer&) = delete;
    CKVItemContainer& operator=(const CKVItemContainer&) = delete;
    virtual ~CKVItemContainer() = default;

    // One line of tuning text to one item. False if the line is none, and nothing is stored.
    virtual bool ParseLine(std::string_view line);
    // The line of an item, with a blank at its end; empty for a null item.
    virtual std::string FormatItem(std::string_view key, const CKVItem* item) const;
    // Reads a text file through ParseLine. False if it can't be opened.
    virtual bool ReadFromFile(const std::string& path);
    // Adds all items as lines to `list`, each before the first line whose second word comes after its key without
    // regard to case. Lines that are in the list keep their order.
    virtual void WriteToList(std::vector<std::string>& list) const;
    virtual void Clear();

    // Typed reads: false if the key is absent or of another kind.
    bool GetBool(std::string_view key, int32_t& value) const;
    bool GetInt(std::string_view key, int32_t& value) const;
    bool GetReal(std::string_view key, double& value) const;
    bool GetText(std::string_view key, std::string& value) const;
    bool GetTextAndKind(std::string_view key, std::string& value, TextKind& kind) const;
    bool GetMulti(std::string_view key, TemplateLines& lines) const;

    void SetBool(std::string_view key, int32_t value);
    void SetInt(std::string_view key, int32_t value);
    void SetReal(std::string_view key, double value);
    void SetText(std::string_view key, std::string value, TextKind kind);
    void SetMulti(std::string_view key, TemplateLines lines);

    bool Remove(std::string_view key);
    void RemoveByPrefix(std::string_view prefix);
    void CopyByPrefix(std::string_view from, std::string_view to);
    // Takes copies of all items of `other` in place of its own.
    void Assign(const CKVItemContainer& other);
    void ReadFromList(const std::vector<std::string>& list);

    // The items in iteration order.
    const CKVItemMapObj& items() const { return items_; }

private:
    CKVItemMapObj items_;
};

// Whether the flag under `key` is set; `if_absent` where there is none, or no container.
bool IsTrue(const CKVItemContainer* container, std::string_view key, bool if_absent = false);

}  // namespace brindle
