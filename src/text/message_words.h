// Words of messages to people.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindle {

// A word of the user's as messages quote it: between single quotes, cut if it is long.
std::string Quoted(std::string_view word);

// `count` and `thing`, with an s if it is not one.
std::string Counted(size_t count, std::string_view thing);

// `did you mean NAME?`; empty if `name` is.
std::string DidYouMean(std::string_view name);

// ` (did you mean NAME?)`, nothing for an empty name.
std::string Suggestion(std::string_view name);

// Whether `text` goes on within a UTF-8 character at that byte.
bool IsWithinCharacter(std::string_view text, size_t at);

}  // namespace brindle
