// The reference of the template language, made from the tables of directives, keywords and examples.
#pragma once

#include <string>

#include "generator/directives.h"

namespace brindle::host {

// The entry of one directive: what it gives, its keywords and their defaults, and its examples.
std::string DirectiveEntry(const DirectiveInfo& directive);

// All directives and keywords, one line each.
std::string DirectiveList();

// The whole reference as a page in Markdown.
std::string DirectivePage();

}  // namespace brindle::host
