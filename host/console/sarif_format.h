// Messages as a SARIF 2.1.0 log, for code hosts and editors.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/console/message.h"

namespace brindle::host {

// One run with one result for each message. Columns count characters. An error and a loss have the level `error`, an
// info `note`; `properties.severity` says which of them it is.
std::string SarifOf(std::span<const Message> messages);

// The reference to a file: relative for a relative path and for one below the current folder.
std::string UriOf(std::string_view path);

}  // namespace brindle::host
