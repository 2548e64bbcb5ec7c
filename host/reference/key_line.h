// The line of a tuning that holds a key with a default, as the editor writes it.
#pragma once

#include <string>

#include "tuning/key_catalogue.h"

namespace brindle::host {

// Without a value it is false, 0 or the empty text; a key of a template has no such line, and gives an empty one.
std::string LineOfDefault(const std::string& key, KeyKind kind, const KeyDefault& value);

}  // namespace brindle::host
