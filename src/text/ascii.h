// Letters without regard to case, the same in every locale. Only ASCII letters have a case here.
#pragma once

#include <string>
#include <string_view>

namespace brindle {

constexpr char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// Below 0, 0 or above 0 as `a` comes before, equals or comes after `b`. Letters compare as lower-case letters, all
// other bytes by their unsigned value, so `_` comes before every letter.
int CompareNoCase(std::string_view a, std::string_view b);

bool EqualNoCase(std::string_view a, std::string_view b);

// `text` with its ASCII letters in upper case.
std::string UpperCase(std::string_view text);

}  // namespace brindle
