// The catalogue of all keys that a tuning can hold: kind, defaults and meaning of each. The readers of a run take their
// defaults from it, `brindle check` judges tunings by it, `brindle keys` prints it, and the editor has its defaults and
// tool tips from it.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "tuning/key_table.h"

namespace brindle {

// All keys, grouped for the reader: the rows of a group are together. A name occurs once per scope; the four codes of
// interpolation have two rows, one alone and one after the prefix of a tool.
constexpr std::span<const KeyInfo> KeyCatalogue() { return key_table::kKeys; }

// All template events, in the order in which lists show them.
constexpr std::span<const EventInfo> TemplateEvents() { return key_table::kEvents; }

// A row of the catalogue, as cheap to pass as a pointer. Made by Key() alone, so it always means a row.
class KeyRef {
public:
    constexpr const KeyInfo& Info() const { return *info_; }
    constexpr bool operator==(const KeyRef&) const = default;
    constexpr const KeyInfo* operator->() const { return info_; }

private:
    explicit constexpr KeyRef(const KeyInfo& info) : info_(&info) {}
    friend consteval KeyRef Key(const char* name);

    const KeyInfo* info_;
};

// Declared for the compiler's message alone: Key() of a name that is in no row calls it and so does not compile.
void TheCatalogueHasNoSuchKey();

// The row of a name without tool prefix and event prefix, looked up while compiling: Key("bUseSubs"). Of a name with
// two rows it is the one without a prefix; both have the same kind and defaults.
consteval KeyRef Key(const char* name) {
    for (const KeyInfo& info : KeyCatalogue()) {
        if (info.name == name) return KeyRef(info);
    }
    TheCatalogueHasNoSuchKey();
    return KeyRef(KeyCatalogue().front());
}

// One key, or those whose names begin or end with what is beside a `*`, or hold what is between two of them. A
// pattern that covers no key does not compile.
class KeyPattern {
public:
    // NOLINTNEXTLINE(google-explicit-constructor): tables give bare patterns.
    consteval KeyPattern(const char* pattern) : text_(pattern) {
        open_start_ = text_.starts_with('*');
        text_.remove_prefix(open_start_ ? 1 : 0);
        open_end_ = text_.ends_with('*');
        text_.remove_suffix(open_end_ ? 1 : 0);
        for (const KeyInfo& info : KeyCatalogue()) {
            if (Covers(info)) return;
        }
        TheCatalogueHasNoSuchKey();
    }

    constexpr bool Covers(const KeyInfo& info) const {
        if (open_start_ && open_end_) return info.name.find(text_) != std::string_view::npos;
        if (open_start_) return info.name.ends_with(text_);
        return open_end_ ? info.name.starts_with(text_) : info.name == text_;
    }

private:
    std::string_view text_;
    bool open_start_ = false, open_end_ = false;
};

// A template event, made by Event() alone.
class EventRef {
public:
    constexpr const EventInfo* operator->() const { return info_; }
    constexpr operator const EventInfo&() const { return *info_; }
    constexpr bool operator==(const EventRef&) const = default;
    // Whether it is the event of a key; `event` is null for a key that is no template's.
    constexpr bool Is(const EventInfo* event) const { return event == info_; }

private:
    explicit constexpr EventRef(const EventInfo& info) : info_(&info) {}
    friend consteval EventRef Event(const char* prefix);

    const EventInfo* info_;
};

// The event whose keys have that prefix, looked up while compiling: Event("Line_").
consteval EventRef Event(const char* prefix) {
    for (const EventInfo& info : TemplateEvents()) {
        if (info.prefix == prefix) return EventRef(info);
    }
    TheCatalogueHasNoSuchKey();
    return EventRef(TemplateEvents().front());
}

// The key of an event's template. `tool_prefix` is that of the tool for the events of tools, otherwise empty.
std::string TemplateKey(const EventInfo& event, std::string_view tool_prefix = {});

// Some template events.
class EventSet {
public:
    constexpr EventSet(std::initializer_list<EventRef> events) {
        for (const EventRef event : events) bits_ |= Bit(*event.operator->());
    }
    constexpr bool operator==(const EventSet&) const = default;
    constexpr bool IsEmpty() const { return bits_ == 0; }
    // `event` is null for a key that is no template's.
    constexpr bool Has(const EventInfo* event) const { return event != nullptr && (bits_ & Bit(*event)) != 0; }

private:
    static constexpr uint32_t Bit(const EventInfo& info) {
        return uint32_t{1} << static_cast<uint32_t>(&info - TemplateEvents().data());
    }

    uint32_t bits_ = 0;
};

// How a complete key of a tuning is read.
struct KeyMatch {
    const KeyInfo* info = nullptr;     // null if the key is unknown; all other fields are empty then
    std::string_view tool_prefix;      // `T%d_` or `T_`, empty for a global key; points into the text of the key
    const EventInfo* event = nullptr;  // the event of a key of a template, otherwise null
};

// Takes a complete key apart. A tool number is any run of decimal digits, 0, leading zeros and numbers beyond 32 bits
// included. Letters count with their case. Costs a few comparisons of text, whatever the size of the catalogue.
KeyMatch MatchKey(std::string_view key);

// The known key that an unknown one was probably meant to be, empty if none is near. Near means that one to three
// letters, the more the longer the name, are missing, too many, wrong or swapped with their neighbour; wrong case
// hardly counts. The tool prefix stays, put right to the form `T%d_`. A known key is its own nearest one. Compares with
// the whole catalogue.
std::string NearestKey(std::string_view key);

}  // namespace brindle
