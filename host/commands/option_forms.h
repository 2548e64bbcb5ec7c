// The forms of what options take, with what is said of a value that has another one.
#pragma once

#include <CLI/CLI.hpp>
#include <initializer_list>
#include <string>

namespace brindle::host {

// `form` is what help and messages call a value that `is_good`.
void SetForm(CLI::Option& option, const char* form, bool (*is_good)(const std::string&));

// One of these words.
void SetChoices(CLI::Option& option, std::initializer_list<const char*> words);

// A whole number of this range, limits included.
void SetWholeNumber(CLI::Option& option, int least, int most);

// A number of at least 0.
void SetSize(CLI::Option& option);

}  // namespace brindle::host
