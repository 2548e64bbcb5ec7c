// The first words of tuning lines that hold items.
#pragma once

#include <string_view>

#include "tuning/key_catalogue.h"
#include "tuning/kv_items.h"

namespace brindle {

// A type word and the kind of item that its lines hold.
struct TypeWordInfo {
    std::string_view word;
    KeyKind kind;
    TextKind text_kind = TextKind::kPlain;
};

inline constexpr TypeWordInfo kTypeWords[] = {
    {"BOOL", KeyKind::kBool},
    {"INT", KeyKind::kInt},
    {"REAL", KeyKind::kReal},
    {"TEXT", KeyKind::kText},
    {"R_EXPR", KeyKind::kText, TextKind::kRealExpression},
    {"T_EXPR", KeyKind::kText, TextKind::kTextExpression},
    {"MULTI", KeyKind::kTemplate},
};

// The row of a type word in upper case, null for another word.
constexpr const TypeWordInfo* FindTypeWord(std::string_view word) {
    for (const TypeWordInfo& info : kTypeWords) {
        if (info.word == word) return &info;
    }
    return nullptr;
}

// The type word of an item; `text_kind` is that of a text, and one beyond the known kinds counts as plain.
constexpr std::string_view TypeWord(KeyKind kind, TextKind text_kind = TextKind::kPlain) {
    for (const TypeWordInfo& info : kTypeWords) {
        if (info.kind == kind && info.text_kind == text_kind) return info.word;
    }
    return TypeWord(kind);
}

}  // namespace brindle
