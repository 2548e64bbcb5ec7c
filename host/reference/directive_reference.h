// The reference of the template language, made from the tables of directives, keywords and examples.
#pragma once

#include <string>
#include <string_view>

#include "language/directives.h"

namespace brindle::host {

// The entry of one directive: what it gives, its keywords and their defaults, and its examples.
std::string DirectiveEntry(const DirectiveInfo& directive);

// The entry of a keyword, by its name with or without a value, or of one of the other words that texts and lines of a
// tuning hold, such as RTD or NNUL. Empty if there is none; case does not count.
std::string OtherWordEntry(std::string_view word);

// All directives, keywords and other words, one line each.
std::string DirectiveList();

// The whole reference as a page in Markdown.
std::string DirectivePage();

}  // namespace brindle::host
