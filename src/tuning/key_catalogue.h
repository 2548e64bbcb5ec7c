// The catalogue of all keys that a tuning can hold: kind, defaults and meaning of each. The readers of a run take their
// defaults from it, `brindle check` judges tunings by it, `brindle keys` prints it, and the editor has its defaults and
// tool tips from it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tuning/key_table.h"

namespace brindle {

// All keys, grouped for the reader: the rows of a group stand together. A name stands once per scope; the four codes of
// interpolation have two rows, one alone and one behind the prefix of a tool.
constexpr std::span<const KeyInfo> KeyCatalogue() { return key_table::kKeys; }

// All template events, in the order in which lists show them.
constexpr std::span<const EventInfo> TemplateEvents() { return key_table::kEvents; }

// A row of the catalogue, as cheap to pass as a pointer. Made by Key() alone, so it always stands for a row.
class KeyRef {
public:
    constexpr const KeyInfo& Info() const { return *info_; }
    constexpr const KeyInfo* operator->() const { return info_; }

private:
    explicit constexpr KeyRef(const KeyInfo& info) : info_(&info) {}
    friend consteval KeyRef Key(const char* name);

    const KeyInfo* info_;
};

// Declared for the compiler's message alone: Key() of a name that is in no row calls it and so does not compile.
void TheCatalogueHasNoSuchKey();

// The row of a name without tool prefix and event prefix, looked up while compiling: Key("bUseSubs"). Of a name with
// two rows it is the one that stands alone; both have the same kind and defaults.
consteval KeyRef Key(const char* name) {
    for (const KeyInfo& info : KeyCatalogue()) {
        if (info.name == name) return KeyRef(info);
    }
    TheCatalogueHasNoSuchKey();
    return KeyRef(KeyCatalogue().front());
}

// How a complete key of a tuning is read.
struct KeyMatch {
    const KeyInfo* info = nullptr;     // null if the key is unknown; all other fields are empty then
    std::string_view tool_prefix;      // `T%d_` or `T_`, empty for a global key; points into the text of the key
    const EventInfo* event = nullptr;  // the event of a key of a template, otherwise null
};

// The first word of a tuning line that holds a key of this kind; a text can also be an expression.
std::string_view TypeWord(KeyKind kind);

// Takes a complete key apart. A tool number is any run of decimal digits, 0, leading zeros and numbers beyond 32 bits
// included. Letters count with their case. Costs a few comparisons of text, whatever the size of the catalogue.
KeyMatch MatchKey(std::string_view key);

// The known key that an unknown one was probably meant to be, empty if none is near. Near means that one to three
// letters, the more the longer the name, are missing, too many, wrong or swapped with their neighbour; wrong case
// hardly counts. The tool prefix stays, put right to the form `T%d_`. A known key is its own nearest one. Compares with
// the whole catalogue.
std::string NearestKey(std::string_view key);

}  // namespace brindle
